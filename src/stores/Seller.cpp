#include "stores/Seller.h"

#include "gateways/DovelAPI.h"
#include "gateways/QDX.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

SellerInstance gSeller;

Seller &SellerInstance::get()
{
    if (!m_seller)
        m_seller = std::make_unique<Seller>();
    return *m_seller;
}

Seller::Seller() : m_classDebugId(GetNextClassDebugID())
{
    GetClientInfo();
}

Seller::~Seller()
{
    m_sessionStarted = false;
}

std::string Seller::connectionString() const
{
    return "Driver={SQL Server};Server=" + m_server + ";Uid=" + m_user + ";Pwd=" + m_password
           + ";Database=" + m_database;
}

void Seller::GetClientInfo()
{
    withHandler("Seller:Sub GetClientInfo", [&] {
        ConnectorBuffer license(DovelAPI::kClientFieldSize);
        ConnectorBuffer clientKey2(DovelAPI::kClientFieldSize);
        ConnectorBuffer id(DovelAPI::kClientFieldSize);
        ConnectorBuffer server(DovelAPI::kClientFieldSize);
        ConnectorBuffer database(DovelAPI::kClientFieldSize);
        ConnectorBuffer user(DovelAPI::kClientFieldSize);
        ConnectorBuffer password(DovelAPI::kClientFieldSize);
        ErpLibrary &erp = erpLibrary();
        std::int32_t code =
            erp.ObtenerIDCliente(&m_clientNumber, license.data(), clientKey2.data(), id.data());
        if (code != 0)
            raiseError(-11001,
                       "APIDovel.ObtenerIDCliente falló con código de error " + std::to_string(code),
                       "Seller:GetClientInfo");
        code = erp.ObtenerDataBase(server.data(), database.data(), user.data(), password.data());
        if (code != 0)
            raiseError(-11001,
                       "APIDovel.ObtenerDataBase falló con código de error " + std::to_string(code),
                       "Seller:GetClientInfo");
        m_license = license.text();
        m_clientKey2 = clientKey2.text();
        m_id = id.text();
        m_server = server.text();
        m_database = database.text();
        m_user = user.text();
        m_password = password.text();
    });
}

std::int32_t Seller::sessionId()
{
    return withHandler("Seller:sessionId ", [&] {
        if (m_sessionStarted)
            return m_sessionId;
        const std::int32_t code = backOfficeLibrary().IniciarSesionW(
            m_license.c_str(), m_clientKey2.c_str(), m_clientNumber, &m_sessionId);
        if (code == -2035)
            raiseError(-2035,
                       "Está intentando conectarse a Sorvek a través de un proveedor de Internet "
                       "distinto a Brantova",
                       "Seller:sessionId");
        if (code != 0)
            raiseError(code,
                       "Error llamando a QDX en IniciarSesion: " + std::to_string(code) + " "
                           + QDXGetErrorMsg(code),
                       "Seller:sessionId");
        m_sessionStarted = true;
        return m_sessionId;
    });
}

void Seller::closeSession()
{
    withHandler("Seller:Sub closeSession", [&] {
        if (!m_sessionStarted)
            return;
        const std::int32_t code = backOfficeLibrary().CerrarSesionW(m_sessionId);
        if (code != 0)
            raiseError(-11002,
                       "Error llamando a QDX en CerrarSesion: " + std::to_string(code) + ":"
                           + QDXGetErrorMsg(code),
                       "Seller:closeSession");
        m_sessionStarted = false;
    });
}
