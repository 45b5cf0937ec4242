#include "Erp.h"
#include "ErpSandbox.h"
#include "platform/connectors/ConnectorAbi.h"

#include <functional>
#include <gtest/gtest.h>
#include <tuple>

namespace {

const std::string kCatalogue = "<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(3) +
                               "</Categoria><Categoria id='C-B' nombre='B'>" +
                               ErpSandbox::products(3, "Q-") + "</Categoria>";

Erp::Reply category(const char *id)
{
    auto query = Erp::categoryQuery(0, id);
    return Erp::page(query);
}

Erp::Reply search(const char *text)
{
    auto query = Erp::searchQuery(0, 2, text);
    return Erp::page(query);
}

std::int32_t clientIdentity(Erp::Buffer &license, Erp::Buffer &key2, Erp::Buffer &id)
{
    std::int32_t number = 0;
    return ObtenerIDCliente(&number, license.data(), key2.data(), id.data());
}

} // namespace

TEST(ErpFaultTest, eachInjectedFaultChangesOnlyTheCallItNames)
{
    const char *categoryB =
        "<Falla funcion='ObtenerContenidoCategoria' categoria='C-B' codigo='6010' respuesta=''/>";
    // What it must answer: a code, and the reply's text or "*" for the usual one, which parses.
    const std::tuple<const char *, const char *, std::function<Erp::Reply()>, int, std::string>
        rows[] = {
            {"one category answers an error", categoryB, [] { return category("C-B"); }, 6010, ""},
            {"the other category still works", categoryB, [] { return category("C-A"); }, 0, "*"},
            {"a search answers a broken reply",
             "<Falla funcion='BusquedaProductosIndividual' texto='roto' respuesta='&lt;Busqueda'/>",
             [] { return search("roto"); }, 0, "<Busqueda"},
            {"one product's detail answers an error",
             "<Falla funcion='ObtenerDefinicionProducto' clave='P-0002' tipo='0' codigo='6002'/>",
             [] { return Erp::definition(0, "P-0002"); }, 6002, "*"},
            {"the deposits answer 5", "<Falla funcion='ListarDepositosVirtuales' codigo='5'/>",
             [] { return Erp::virtualDeposits(); }, 5, "*"},
        };
    for (const auto &[what, fault, call, code, text] : rows) {
        ErpSandbox sandbox;
        sandbox.writeData(kCatalogue, fault);
        const Erp::Reply reply = call();
        EXPECT_EQ(reply.code, code) << what;
        if (text == "*") {
            EXPECT_TRUE(reply.parsed) << what << ": " << reply.text;
        } else {
            EXPECT_EQ(reply.text, text) << what;
        }
    }
    ErpSandbox sandbox;
    sandbox.writeData("", "<Falla funcion='ObtenerIDCliente' codigo='7'/>");
    Erp::Buffer license, key2, id;
    EXPECT_EQ(clientIdentity(license, key2, id), 7) << "the client's identity answers 7";
}

TEST(ErpFaultTest, anOverLongReplyIsCutAtTheBufferAndNothingIsWrittenPastIt)
{
    ErpSandbox sandbox;
    sandbox.writeData(kCatalogue, "<Falla funcion='ObtenerImpuestos' relleno='70000'/>"
                                  "<Falla funcion='ObtenerIDCliente' relleno='600'/>");
    const Erp::Reply padded = Erp::taxes();
    EXPECT_EQ(padded.code, 0);
    EXPECT_TRUE(padded.guardIntact);
    EXPECT_EQ(padded.text.size(), 65534u);
    EXPECT_FALSE(padded.parsed);

    // The client's strings are cut at 256 characters.
    Erp::Buffer license, key2, id;
    EXPECT_EQ(clientIdentity(license, key2, id), 0);
    for (const Erp::Buffer *buffer : {&license, &key2, &id}) {
        EXPECT_TRUE(buffer->guardIntact());
        EXPECT_EQ(buffer->text().size(), 255u);
    }
}

TEST(ErpFaultTest, anUnreadableDataSetFailsEveryFunctionWith9001)
{
    for (const char *text : {"<Erp><Cliente", "<Erp><Cliente numero='x'/></Erp>", "<Otro/>", ""}) {
        ErpSandbox sandbox;
        if (*text != '\0') {
            sandbox.writeRawData(text);
        }
        Erp::Buffer a, b, c;
        EXPECT_EQ(clientIdentity(a, b, c), 9001) << text;
        EXPECT_EQ(Erp::taxes().code, 9001) << text;
        EXPECT_EQ(search("").code, 9001) << text;
    }
}
