#include "platform/connectors/LoadedBackOfficeLibrary.h"
#include "platform/connectors/LoadedErpLibrary.h"
#include "platform/core/RaisedError.h"

#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using testing::HasSubstr;

namespace {

constexpr const char *kErpVariable = "ASISTENTE_ERP_LIBRARY";
constexpr const char *kBackOfficeVariable = "ASISTENTE_BACKOFFICE_LIBRARY";

void pointAt(const char *variable, const char *path)
{
    if (path != nullptr)
        setenv(variable, path, 1);
    else
        unsetenv(variable);
}

TEST(ConnectorLibrariesTest, callsRunInTheLibrariesTheVariablesName)
{
    pointAt(kErpVariable, FAKE_CONNECTOR_LIBRARY);
    pointAt(kBackOfficeVariable, FAKE_CONNECTOR_LIBRARY);
    LoadedErpLibrary erp;
    LoadedBackOfficeLibrary backOffice;

    std::int32_t clientNumber = 0;
    std::vector<char> license(256), clientKey2(256), id(256);
    EXPECT_EQ(erp.ObtenerIDCliente(&clientNumber, license.data(), clientKey2.data(), id.data()),
              0);
    EXPECT_EQ(clientNumber, 4711);
    EXPECT_STREQ(license.data(), "LIC-0042");
    EXPECT_STREQ(id.data(), "vendedor-7");

    std::int32_t sessionId = 0;
    EXPECT_EQ(backOffice.IniciarSesionW("LIC-0042", "clave-dos", 4711, &sessionId), 0);
    EXPECT_EQ(sessionId, 4712);
    // The library's own codes come back untouched: reading them is the gateways' business.
    EXPECT_EQ(backOffice.IniciarSesionW("otra", "clave-dos", 4711, &sessionId), -2005);
    std::vector<char> reply(65535);
    EXPECT_EQ(backOffice.EjecutarOperacionW(14, 4712, "<Pedido/>", reply.data(), 65535), 0);
    EXPECT_STREQ(reply.data(), R"(<R op="14" s="4712"><Pedido/></R>)");
}

struct MissingPiece
{
    const char *situation;
    const char *variable;
    const char *path; // nullptr: the variable is unset, so the usual name is searched
    std::function<void()> call;
    std::int32_t number;
    std::string library;
    std::string function;
};

TEST(ConnectorLibrariesTest, aMissingLibraryOrFunctionFailsTheCallNamingBoth)
{
    std::vector<char> text(65535);
    const auto erpTaxes = [&] { LoadedErpLibrary().ObtenerImpuestos(text.data()); };
    const std::vector<MissingPiece> rows = {
        {"the ERP library is not where the variable points", kErpVariable, "/no/libzrvndll.so",
         erpTaxes, RuntimeErrorNumber::FileNotFound, "/no/libzrvndll.so", "ObtenerImpuestos"},
        {"the ERP library lacks the taxes function", kErpVariable, FAKE_CONNECTOR_LIBRARY,
         erpTaxes, RuntimeErrorNumber::EntryPointNotFound, FAKE_CONNECTOR_LIBRARY,
         "ObtenerImpuestos"},
        {"no back-office library is installed under its usual name", kBackOfficeVariable, nullptr,
         [] { LoadedBackOfficeLibrary().CerrarSesionW(1); }, RuntimeErrorNumber::FileNotFound,
         "libqdx.so", "CerrarSesionW"},
        {"the back-office library lacks the close-session function", kBackOfficeVariable,
         FAKE_CONNECTOR_LIBRARY, [] { LoadedBackOfficeLibrary().CerrarSesionW(1); },
         RuntimeErrorNumber::EntryPointNotFound, FAKE_CONNECTOR_LIBRARY, "CerrarSesionW"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.situation);
        pointAt(row.variable, row.path);
        try {
            row.call();
            ADD_FAILURE() << "the call did not fail";
        } catch (const RaisedError &e) {
            EXPECT_EQ(e.number(), row.number);
            EXPECT_THAT(e.description(), HasSubstr(row.library));
            EXPECT_THAT(e.description(), HasSubstr(row.function));
        }
    }
}

TEST(ConnectorLibrariesTest, aLibraryThatWasMissingIsLoadedOnceItIsThere)
{
    LoadedErpLibrary erp;
    std::int32_t clientNumber = 0;
    std::vector<char> text(256);
    pointAt(kErpVariable, "/no/libzrvndll.so");
    EXPECT_THROW(erp.ObtenerIDCliente(&clientNumber, text.data(), text.data(), text.data()),
                 RaisedError);

    pointAt(kErpVariable, FAKE_CONNECTOR_LIBRARY);
    EXPECT_EQ(erp.ObtenerIDCliente(&clientNumber, text.data(), text.data(), text.data()), 0);
    EXPECT_EQ(clientNumber, 4711);
}

} // namespace
