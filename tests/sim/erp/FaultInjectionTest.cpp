#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <dlfcn.h>
#include <functional>
#include <gtest/gtest.h>

namespace {

const std::string kCatalogue = "<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(3) +
                               "</Categoria><Categoria id='C-B' nombre='B'>" +
                               ErpSandbox::products(3, "Q-") + "</Categoria>";

ErpLibrary::Reply category(ErpLibrary &erp, const char *id)
{
    auto query = ErpLibrary::categoryQuery(0, id);
    return erp.categoryContents(query);
}

ErpLibrary::Reply search(ErpLibrary &erp, const char *text)
{
    auto query = ErpLibrary::searchQuery(0, 2, text);
    return erp.search(query);
}

} // namespace

TEST(ErpFaultTest, eachInjectedFaultChangesOnlyTheCallItNames)
{
    struct Row
    {
        const char *what;
        const char *fault;
        std::function<ErpLibrary::Reply(ErpLibrary &)> call;
        int code;
        std::string reply; // "*" for the usual reply, which must parse
    };
    const std::vector<Row> rows = {
        {"one category answers an error",
         "<Falla funcion='ObtenerContenidoCategoria' categoria='C-B' codigo='6010' respuesta=''/>",
         [](ErpLibrary &erp) { return category(erp, "C-B"); }, 6010, ""},
        {"the other category still works",
         "<Falla funcion='ObtenerContenidoCategoria' categoria='C-B' codigo='6010' respuesta=''/>",
         [](ErpLibrary &erp) { return category(erp, "C-A"); }, 0, "*"},
        {"a category answers 6007 with an empty reply",
         "<Falla funcion='ObtenerContenidoCategoria' codigo='6007' respuesta=''/>",
         [](ErpLibrary &erp) { return category(erp, "C-A"); }, 6007, ""},
        {"a search answers a broken reply",
         "<Falla funcion='BusquedaProductosIndividual' texto='roto' respuesta='&lt;Busqueda'/>",
         [](ErpLibrary &erp) { return search(erp, "roto"); }, 0, "<Busqueda"},
        {"the first search page answers 8007 with its products",
         "<Falla funcion='BusquedaProductosIndividual' codigo='8007'/>",
         [](ErpLibrary &erp) { return search(erp, ""); }, 8007, "*"},
        {"one product's detail answers an error",
         "<Falla funcion='ObtenerDefinicionProducto' clave='P-0002' tipo='0' codigo='6002'/>",
         [](ErpLibrary &erp) { return erp.definition(0, "P-0002"); }, 6002, "*"},
        {"another product's detail is untouched",
         "<Falla funcion='ObtenerDefinicionProducto' clave='P-0002' tipo='0' codigo='6002'/>",
         [](ErpLibrary &erp) { return erp.definition(0, "P-0003"); }, 0, "*"},
        {"the taxes answer 3", "<Falla funcion='ObtenerImpuestos' codigo='3'/>",
         [](ErpLibrary &erp) { return erp.taxes(); }, 3, "*"},
        {"the deposits answer 5", "<Falla funcion='ListarDepositosVirtuales' codigo='5'/>",
         [](ErpLibrary &erp) { return erp.virtualDeposits(); }, 5, "*"},
    };
    for (const Row &row : rows) {
        ErpSandbox sandbox;
        sandbox.writeData(kCatalogue, row.fault);
        ErpLibrary erp;
        const ErpLibrary::Reply reply = row.call(erp);
        EXPECT_EQ(reply.code, row.code) << row.what;
        if (row.reply == "*") {
            EXPECT_TRUE(reply.parsed) << row.what << ": " << reply.text;
        } else {
            EXPECT_EQ(reply.text, row.reply) << row.what;
        }
    }
}

TEST(ErpFaultTest, theClientFunctionsAnswerTheirInjectedCodes)
{
    ErpSandbox sandbox;
    sandbox.writeData("", "<Falla funcion='ObtenerIDCliente' codigo='7'/>"
                          "<Falla funcion='ObtenerDataBase' codigo='12'/>");
    ErpLibrary erp;
    std::int32_t number = 0;
    ErpLibrary::Buffer a, b, c, d;
    EXPECT_EQ(erp.clientIdentity(number, a, b, c), 7);
    EXPECT_EQ(erp.databaseCoordinates(a, b, c, d), 12);
}

TEST(ErpFaultTest, anOverLongReplyIsCutAtTheBufferAndNothingIsWrittenPastIt)
{
    ErpSandbox sandbox;
    sandbox.writeData(kCatalogue, "<Falla funcion='ObtenerImpuestos' relleno='70000'/>");
    const ErpLibrary::Reply padded = ErpLibrary().taxes();
    EXPECT_EQ(padded.code, 0);
    EXPECT_TRUE(padded.guardIntact);
    EXPECT_EQ(padded.text.size(), 65534u);
    EXPECT_EQ(padded.text.rfind("<ObtenerImpuestos><Impuesto", 0), 0u);
    EXPECT_FALSE(padded.parsed);

    // A page of fifty long descriptions does not fit either, and is cut the same way.
    sandbox.writeData("<Categoria id='C-L' nombre='L'>" +
                      ErpSandbox::products(50, "L-", std::string(2000, 'd')) + "</Categoria>");
    ErpLibrary erp;
    const ErpLibrary::Reply page = category(erp, "C-L");
    EXPECT_EQ(page.code, 0);
    EXPECT_TRUE(page.guardIntact);
    EXPECT_EQ(page.text.size(), 65534u);
}

TEST(ErpFaultTest, overLongClientStringsAreCutAt256Characters)
{
    ErpSandbox sandbox;
    sandbox.writeData("", "<Falla funcion='ObtenerIDCliente' relleno='600'/>");
    std::int32_t number = 0;
    ErpLibrary::Buffer license, key2, id;
    EXPECT_EQ(ErpLibrary().clientIdentity(number, license, key2, id), 0);
    for (const ErpLibrary::Buffer *buffer : {&license, &key2, &id}) {
        EXPECT_TRUE(buffer->guardIntact());
        EXPECT_EQ(buffer->text().size(), 255u);
    }
    EXPECT_EQ(license.text().rfind("NUB-LIC-2026-0042xxx", 0), 0u);
}

TEST(ErpFaultTest, anUnreadableDataSetFailsEveryFunctionWith9001)
{
    for (const char *text : {"<Erp><Cliente", "<Erp><Cliente numero='x'/></Erp>", "<Otro/>", ""}) {
        ErpSandbox sandbox;
        if (*text != '\0') {
            sandbox.writeRawData(text);
        }
        ErpLibrary erp;
        std::int32_t number = 0;
        ErpLibrary::Buffer a, b, c;
        EXPECT_EQ(erp.clientIdentity(number, a, b, c), 9001) << text;
        EXPECT_EQ(erp.taxes().code, 9001) << text;
        EXPECT_EQ(search(erp, "").code, 9001) << text;
    }
}

TEST(ErpFaultTest, aCallerWithoutAReplyBufferIsRefusedWithoutACrash)
{
    ErpSandbox sandbox;
    sandbox.writeData(kCatalogue);
    void *library = dlopen(ZRVNDLL_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr);
    using Taxes = std::int32_t (*)(char *);
    using Client = std::int32_t (*)(std::int32_t *, char *, char *, char *);
    char buffer[256] = {};
    EXPECT_EQ(reinterpret_cast<Taxes>(dlsym(library, "ObtenerImpuestos"))(nullptr), 8001);
    EXPECT_EQ(reinterpret_cast<Client>(dlsym(library, "ObtenerIDCliente"))(nullptr, buffer, buffer,
                                                                           buffer),
              8001);
    dlclose(library);
}
