#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <functional>

namespace {

const std::string kCatalogue = "<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(3) +
                               "</Categoria><Categoria id='C-B' nombre='B'>" +
                               ErpSandbox::products(3, "Q-") + "</Categoria>";

struct Outcome
{
    int code;
    std::string reply;
};

Outcome categoryOf(ErpLibrary &erp, const char *id)
{
    auto query = ErpLibrary::categoryQuery(0, id);
    const ErpLibrary::Reply reply = erp.categoryContents(query);
    return {reply.code, reply.text};
}

struct FaultRow
{
    const char *what;
    const char *fault;
    std::function<Outcome(ErpLibrary &)> call;
    int code;
    std::function<bool(const std::string &)> replyIsRight;
};

bool isEmpty(const std::string &reply)
{
    return reply.empty();
}

bool parses(const std::string &reply)
{
    pugi::xml_document document;
    return static_cast<bool>(document.load_string(reply.c_str()));
}

} // namespace

TEST(ErpFaultTest, eachInjectedFaultChangesOnlyTheCallItNames)
{
    const std::vector<FaultRow> rows = {
        {"the client data answers 7", "<Falla funcion='ObtenerIDCliente' codigo='7'/>",
         [](ErpLibrary &erp) {
             std::int32_t number = 0;
             ErpLibrary::Buffer a(256), b(256), c(256);
             return Outcome{erp.clientIdentity(number, a, b, c), a.text()};
         },
         7, [](const std::string &license) { return license == "NUB-LIC-2026-0042"; }},
        {"the database coordinates answer 12", "<Falla funcion='ObtenerDataBase' codigo='12'/>",
         [](ErpLibrary &erp) {
             ErpLibrary::Buffer a(256), b(256), c(256), d(256);
             return Outcome{erp.databaseCoordinates(a, b, c, d), b.text()};
         },
         12, [](const std::string &database) { return database == "AsistenteDemo"; }},
        {"one category answers an error",
         "<Falla funcion='ObtenerContenidoCategoria' categoria='C-B' codigo='6010' respuesta=''/>",
         [](ErpLibrary &erp) { return categoryOf(erp, "C-B"); }, 6010, isEmpty},
        {"the other category still works",
         "<Falla funcion='ObtenerContenidoCategoria' categoria='C-B' codigo='6010' respuesta=''/>",
         [](ErpLibrary &erp) { return categoryOf(erp, "C-A"); }, 0, parses},
        {"a category answers 6007 with an empty reply",
         "<Falla funcion='ObtenerContenidoCategoria' codigo='6007' respuesta=''/>",
         [](ErpLibrary &erp) { return categoryOf(erp, "C-A"); }, 6007, isEmpty},
        {"a search answers a broken reply",
         "<Falla funcion='BusquedaProductosIndividual' texto='roto' respuesta='&lt;Busqueda'/>",
         [](ErpLibrary &erp) {
             auto query = ErpLibrary::searchQuery(0, 2, "roto");
             const auto reply = erp.search(query);
             return Outcome{reply.code, reply.text};
         },
         0, [](const std::string &reply) { return reply == "<Busqueda"; }},
        {"the first search page answers 8007 with its products",
         "<Falla funcion='BusquedaProductosIndividual' codigo='8007'/>",
         [](ErpLibrary &erp) {
             auto query = ErpLibrary::searchQuery(0, 1, "P");
             const auto reply = erp.search(query);
             return Outcome{reply.code, std::to_string(reply.productIds().size())};
         },
         8007, [](const std::string &found) { return found == "3"; }},
        {"one product's detail answers an error",
         "<Falla funcion='ObtenerDefinicionProducto' clave='P-0002' tipo='0' codigo='6002'/>",
         [](ErpLibrary &erp) {
             const auto reply = erp.definition(0, "P-0002");
             return Outcome{reply.code, reply.text};
         },
         6002, parses},
        {"the taxes answer 3", "<Falla funcion='ObtenerImpuestos' codigo='3'/>",
         [](ErpLibrary &erp) {
             const auto reply = erp.taxes();
             return Outcome{reply.code, reply.text};
         },
         3, parses},
        {"the deposits answer 5", "<Falla funcion='ListarDepositosVirtuales' codigo='5'/>",
         [](ErpLibrary &erp) {
             ErpLibrary::Buffer position(1000);
             const auto reply = erp.virtualDeposits(position);
             return Outcome{reply.code, reply.text};
         },
         5, parses},
    };
    for (const FaultRow &row : rows) {
        ErpSandbox sandbox;
        sandbox.writeData(kCatalogue, row.fault);
        ErpLibrary erp;
        const Outcome outcome = row.call(erp);
        EXPECT_EQ(outcome.code, row.code) << row.what;
        EXPECT_TRUE(row.replyIsRight(outcome.reply)) << row.what << ": " << outcome.reply;
    }
}

TEST(ErpFaultTest, anOverLongReplyIsCutAtTheBufferAndNothingIsWrittenPastIt)
{
    ErpSandbox sandbox;
    sandbox.writeData(kCatalogue, "<Falla funcion='ObtenerImpuestos' relleno='70000'/>");
    ErpLibrary erp;
    const ErpLibrary::Reply reply = erp.taxes();
    EXPECT_EQ(reply.code, 0);
    EXPECT_TRUE(reply.guardIntact);
    EXPECT_EQ(reply.text.size(), 65534u);
    EXPECT_EQ(reply.text.rfind("<ObtenerImpuestos>", 0), 0u);
    EXPECT_FALSE(reply.parsed);
}

TEST(ErpFaultTest, aPageOfLongDescriptionsIsCutAtTheBufferLikeAnyOtherReply)
{
    ErpSandbox sandbox;
    sandbox.writeData("<Categoria id='C-L' nombre='L'>" +
                      ErpSandbox::products(50, "L-", std::string(2000, 'd')) + "</Categoria>");
    ErpLibrary erp;
    auto query = ErpLibrary::categoryQuery(0, "C-L");
    const ErpLibrary::Reply reply = erp.categoryContents(query);
    EXPECT_EQ(reply.code, 0);
    EXPECT_TRUE(reply.guardIntact);
    EXPECT_EQ(reply.text.size(), 65534u);
    EXPECT_FALSE(reply.parsed);
}

TEST(ErpFaultTest, overLongClientStringsAreCutAt256Characters)
{
    ErpSandbox sandbox;
    sandbox.writeData("", "<Falla funcion='ObtenerIDCliente' relleno='600'/>");
    ErpLibrary erp;
    std::int32_t number = 0;
    ErpLibrary::Buffer license(256), key2(256), id(256);
    EXPECT_EQ(erp.clientIdentity(number, license, key2, id), 0);
    for (const ErpLibrary::Buffer *buffer : {&license, &key2, &id}) {
        EXPECT_TRUE(buffer->guardIntact());
        EXPECT_EQ(buffer->text().size(), 255u);
    }
    EXPECT_EQ(license.text().rfind("NUB-LIC-2026-0042xxx", 0), 0u);
}

TEST(ErpFaultTest, anUnreadableDataSetFailsEveryFunctionWith9001)
{
    struct Row
    {
        const char *what;
        const char *text;
    };
    for (const Row &row : {Row{"a file that is not XML", "<Erp><Cliente"},
                           Row{"a client number that is not a number",
                               "<Erp><Cliente numero='x'/></Erp>"},
                           Row{"a file without the ERP element", "<Otro/>"}}) {
        ErpSandbox sandbox;
        sandbox.writeRawData(row.text);
        ErpLibrary erp;
        std::int32_t number = 0;
        ErpLibrary::Buffer a(256), b(256), c(256);
        EXPECT_EQ(erp.clientIdentity(number, a, b, c), 9001) << row.what;
        EXPECT_EQ(erp.taxes().code, 9001) << row.what;
        auto query = ErpLibrary::searchQuery(0, 1, "");
        EXPECT_EQ(erp.search(query).code, 9001) << row.what;
    }
    ErpSandbox missing;
    ErpLibrary erp;
    EXPECT_EQ(erp.definition(0, "P-0001").code, 9001) << "no data file at all";
}

TEST(ErpFaultTest, aCallerWithoutAReplyBufferIsRefusedWithoutACrash)
{
    ErpSandbox sandbox;
    sandbox.writeData(kCatalogue);
    void *library = dlopen(ZRVNDLL_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr);
    using Taxes = std::int32_t (*)(char *);
    using Client = std::int32_t (*)(std::int32_t *, char *, char *, char *);
    const auto taxes = reinterpret_cast<Taxes>(dlsym(library, "ObtenerImpuestos"));
    const auto client = reinterpret_cast<Client>(dlsym(library, "ObtenerIDCliente"));
    EXPECT_EQ(taxes(nullptr), 8001);
    char buffer[256] = {};
    EXPECT_EQ(client(nullptr, buffer, buffer, buffer), 8001);
    dlclose(library);
}
