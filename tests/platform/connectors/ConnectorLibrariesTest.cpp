#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/connectors/LoadedBackOfficeLibrary.h"
#include "platform/connectors/LoadedErpLibrary.h"
#include "platform/core/RaisedError.h"

#include <cstdlib>
#include <cstring>
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

std::vector<char> buffer(std::size_t size)
{
    return std::vector<char>(size, '\0');
}

TEST(ConnectorLibrariesTest, theErpFunctionsRunInTheLibraryTheVariableNames)
{
    pointAt(kErpVariable, FAKE_CONNECTOR_LIBRARY);
    LoadedErpLibrary erp;

    std::int32_t clientNumber = 0;
    auto license = buffer(256), clientKey2 = buffer(256), id = buffer(256);
    EXPECT_EQ(erp.ObtenerIDCliente(&clientNumber, license.data(), clientKey2.data(), id.data()),
              0);
    EXPECT_EQ(clientNumber, 4711);
    EXPECT_STREQ(license.data(), "LIC-0042");
    EXPECT_STREQ(clientKey2.data(), "clave-dos");
    EXPECT_STREQ(id.data(), "vendedor-7");

    auto reply = buffer(65535);
    EXPECT_EQ(erp.ObtenerDefinicionProducto(3, "P-1|2024-05-01 10:00:00", "mt-2", reply.data()),
              0);
    EXPECT_STREQ(reply.data(),
                 R"(<Producto tipo="3" clave="P-1|2024-05-01 10:00:00" minitienda="mt-2"/>)");
    // The library's own codes come back untouched: reading them is the gateways' business.
    EXPECT_EQ(erp.ObtenerDefinicionProducto(9, "P-1", "", reply.data()), 8002);
}

TEST(ConnectorLibrariesTest, theBackOfficeFunctionsRunInTheLibraryTheVariableNames)
{
    pointAt(kBackOfficeVariable, FAKE_CONNECTOR_LIBRARY);
    LoadedBackOfficeLibrary backOffice;

    std::int32_t sessionId = 0;
    EXPECT_EQ(backOffice.IniciarSesionW("LIC-0042", "clave-dos", 4711, &sessionId), 0);
    EXPECT_EQ(sessionId, 4712);
    EXPECT_EQ(backOffice.IniciarSesionW("otra", "clave-dos", 4711, &sessionId), -2005);

    auto reply = buffer(65535);
    EXPECT_EQ(backOffice.EjecutarOperacionW(14, 4712, "<Pedido/>", reply.data(), 65535), 0);
    EXPECT_STREQ(reply.data(), R"(<Respuesta operacion="14" sesion="4712"><Pedido/></Respuesta>)");
}

struct MissingPiece
{
    const char *situation;
    const char *variable;
    const char *path; // nullptr: the variable is unset, so the default name is searched
    std::function<void()> call;
    std::int32_t number;
    std::string library;
    std::string function;
};

TEST(ConnectorLibrariesTest, aMissingLibraryOrFunctionFailsTheCallNamingBoth)
{
    auto reply = buffer(65535);
    const std::vector<MissingPiece> rows = {
        {"the ERP library is not where the variable points", kErpVariable,
         "/nonexistent/libzrvndll.so", [&] { LoadedErpLibrary().ObtenerImpuestos(reply.data()); },
         RuntimeErrorNumber::FileNotFound, "/nonexistent/libzrvndll.so", "ObtenerImpuestos"},
        {"no ERP library is installed under its usual name", kErpVariable, nullptr,
         [&] {
             LoadedErpLibrary().ObtenerDataBase(reply.data(), reply.data(), reply.data(),
                                                reply.data());
         },
         RuntimeErrorNumber::FileNotFound, "libzrvndll.so", "ObtenerDataBase"},
        {"the ERP library lacks the taxes function", kErpVariable, FAKE_CONNECTOR_LIBRARY,
         [&] { LoadedErpLibrary().ObtenerImpuestos(reply.data()); },
         RuntimeErrorNumber::EntryPointNotFound, FAKE_CONNECTOR_LIBRARY, "ObtenerImpuestos"},
        {"no back-office library is installed under its usual name", kBackOfficeVariable, nullptr,
         [&] {
             std::int32_t sessionId = 0;
             LoadedBackOfficeLibrary().IniciarSesionW("a", "b", 1, &sessionId);
         },
         RuntimeErrorNumber::FileNotFound, "libqdx.so", "IniciarSesionW"},
        {"the back-office library lacks the close-session function", kBackOfficeVariable,
         FAKE_CONNECTOR_LIBRARY, [] { LoadedBackOfficeLibrary().CerrarSesionW(4712); },
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
    auto text = buffer(256);
    pointAt(kErpVariable, "/nonexistent/libzrvndll.so");
    EXPECT_THROW(erp.ObtenerIDCliente(&clientNumber, text.data(), text.data(), text.data()),
                 RaisedError);

    pointAt(kErpVariable, FAKE_CONNECTOR_LIBRARY);
    EXPECT_EQ(erp.ObtenerIDCliente(&clientNumber, text.data(), text.data(), text.data()), 0);
    EXPECT_EQ(clientNumber, 4711);
}

class TaxesOnlyErp : public ErpLibrary
{
public:
    std::int32_t ObtenerImpuestos(char *reply) override
    {
        std::strcpy(reply, "<Impuestos/>");
        return 0;
    }
    std::int32_t ObtenerIDCliente(std::int32_t *, char *, char *, char *) override { return -1; }
    std::int32_t ObtenerDataBase(char *, char *, char *, char *) override { return -1; }
    std::int32_t ListarDepositosVirtuales(std::int32_t, char *, std::int32_t, std::int32_t *,
                                          char *) override
    {
        return -1;
    }
    std::int32_t ObtenerContenidoCategoria(std::int32_t, char *, std::int32_t, char *,
                                           std::int32_t, const char *, std::int32_t *,
                                           char *) override
    {
        return -1;
    }
    std::int32_t BusquedaProductosIndividual(std::int32_t, std::int32_t, char *, std::int32_t,
                                             char *, std::int32_t, const char *, std::int32_t *,
                                             char *) override
    {
        return -1;
    }
    std::int32_t ObtenerDefinicionProducto(std::int32_t, const char *, const char *,
                                           char *) override
    {
        return -1;
    }
};

class CloseOnlyBackOffice : public BackOfficeLibrary
{
public:
    std::int32_t CerrarSesionW(std::int32_t sessionId) override
    {
        return sessionId == 4712 ? 0 : 1;
    }
    std::int32_t IniciarSesionW(const char *, const char *, std::int32_t, std::int32_t *) override
    {
        return -1;
    }
    std::int32_t EjecutarOperacionW(std::int32_t, std::int32_t, const char *, char *,
                                    std::int32_t) override
    {
        return -1;
    }
};

TEST(ConnectorLibrariesTest, anInstalledFakeStandsInForTheRealLibraryUntilItIsRemoved)
{
    pointAt(kErpVariable, FAKE_CONNECTOR_LIBRARY);
    pointAt(kBackOfficeVariable, FAKE_CONNECTOR_LIBRARY);
    auto reply = buffer(65535);

    setErpLibrary(std::make_shared<TaxesOnlyErp>());
    setBackOfficeLibrary(std::make_shared<CloseOnlyBackOffice>());
    EXPECT_EQ(erpLibrary().ObtenerImpuestos(reply.data()), 0);
    EXPECT_STREQ(reply.data(), "<Impuestos/>");
    EXPECT_EQ(backOfficeLibrary().CerrarSesionW(4712), 0);

    // Back to the real libraries, which lack exactly these two functions.
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
    EXPECT_THROW(erpLibrary().ObtenerImpuestos(reply.data()), RaisedError);
    EXPECT_THROW(backOfficeLibrary().CerrarSesionW(4712), RaisedError);
}

} // namespace
