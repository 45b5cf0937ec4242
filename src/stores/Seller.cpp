#include "stores/Seller.h"

#include "gateways/CommerceServer.h"
#include "gateways/DovelAPI.h"
#include "gateways/QDX.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/soap/SoapClient.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"

SellerInstance gSeller;

Seller &SellerInstance::get()
{
    if (!m_seller)
        m_seller = std::make_unique<Seller>();
    return *m_seller;
}

Seller::Seller()
    : m_classDebugId(GetNextClassDebugID()), m_ministores(std::make_shared<Ministores>())
{
    GetClientInfo();
    m_virtualDeposits = std::make_shared<VirtualDeposits>();
}

Seller::~Seller()
{
    m_sessionStarted = false;
}

std::string Seller::connectionString() const
{
    return "Driver={SQL Server};Server=" + m_server + ";Uid=" + m_user + ";Pwd=" + m_password +
           ";Database=" + m_database;
}

void Seller::GetClientInfo()
{
    // The ERP writes straight into the seller's strings, as the connector's caller-owned
    // buffers (a std::string keeps a NUL past its end), so a failed call leaves them as they
    // stood: NUL-filled, or holding what the first call wrote.
    std::string *const fields[] = {&m_license,  &m_clientKey2, &m_id,      &m_server,
                                   &m_database, &m_user,       &m_password};
    withHandler("Seller:Sub GetClientInfo", [&] {
        for (std::string *field : fields)
            field->assign(DovelAPI::kClientFieldSize, '\0');
        ErpLibrary &erp = erpLibrary();
        std::int32_t code = erp.ObtenerIDCliente(&m_clientNumber, m_license.data(),
                                                 m_clientKey2.data(), m_id.data());
        if (code != 0)
            raiseError(-11001,
                       "APIDovel.ObtenerIDCliente falló con código de error " +
                           std::to_string(code),
                       "Seller:GetClientInfo");
        code = erp.ObtenerDataBase(m_server.data(), m_database.data(), m_user.data(),
                                   m_password.data());
        if (code != 0)
            raiseError(-11001,
                       "APIDovel.ObtenerDataBase falló con código de error " + std::to_string(code),
                       "Seller:GetClientInfo");
        for (std::string *field : fields)
            field->resize(std::char_traits<char>::length(field->c_str()));
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
                       "Error llamando a QDX en IniciarSesion: " + std::to_string(code) + " " +
                           QDXGetErrorMsg(code),
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
                       "Error llamando a QDX en CerrarSesion: " + std::to_string(code) + ":" +
                           QDXGetErrorMsg(code),
                       "Seller:closeSession");
        m_sessionStarted = false;
    });
}

std::shared_ptr<Ministores> Seller::ministores()
{
    return withHandler("Seller:Ministores ", [&] {
        if (!m_ministores->empty())
            return m_ministores;
        if (!gStoreClient)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        readMinistores(gStoreClient->call("GetSellerInformation", {m_id}));
        return m_ministores;
    });
}

void Seller::readMinistores(const std::string &storeText)
{
    const std::string source = "Seller:Get ministores";
    XmlDocument storeReply;
    if (!storeReply.loadXML(storeText))
        raiseError(-10503,
                   "El XML retornado por CommerceServerStoreAPI.GetSellerInformation está mal "
                   "construido: " +
                       storeText,
                   source);
    if (Commerce_IsError(storeReply))
        raiseError(-11003, Commerce_ErrorDescription(storeReply),
                   "Seller:Get ministores CommerceServerStoreAPI.GetSellerInformation retornó "
                   "con error: " +
                       std::to_string(Commerce_ErrorNumber(storeReply)));
    storeReply.setProperty("SelectionLanguage", "XPath");

    XmlDocument request;
    XmlNode sellerId = request.createElement("SellerID");
    sellerId.setText(m_id);
    XmlNode getStoreInfo = request.createElement("GetStoreInfo");
    getStoreInfo.appendChild(sellerId);
    XmlNode license = request.createElement("ProductLicense");
    license.setText(m_license);
    getStoreInfo.appendChild(license);
    request.appendChild(getStoreInfo);

    std::string backOfficeText(static_cast<std::size_t>(kQdxReplySize), '\0');
    const std::int32_t session = sessionId();
    const std::int32_t code =
        EjecutarOperacion(QdxOperation::ObtenerInformacionMinitiendas, session, request.xml(),
                          backOfficeText, kQdxReplySize);
    if (code != 0)
        raiseError(code,
                   "Error llamando a QDX en EjecutarOperacion "
                   "QDX_Obtener_Informacion_Minitiendas : " +
                       std::to_string(code) + ":" + QDXGetErrorMsg(code),
                   source);
    XmlDocument backOfficeReply;
    if (!backOfficeReply.loadXML(backOfficeText))
        raiseError(-10502,
                   "El XML retornado por el QDX en EjecutarOperacion "
                   "QDX_Obtener_Informacion_Minitiendas está mal construido: " +
                       backOfficeText,
                   source);
    backOfficeReply.setProperty("SelectionLanguage", "XPath");
    if (isError(backOfficeReply))
        raiseError(ErrorNumber(backOfficeReply), errorDescription(backOfficeReply), source);

    // The catalogue service names the stores; the back office only completes them, so a
    // store it does not know is fatal and one it alone knows is ignored.
    for (const XmlNode &store : storeReply.selectNodes("descendant::Store")) {
        const XmlNodeList ids = store.selectNodes("StoreID");
        if (ids.length() == 0)
            raiseError(-10503,
                       "El XML retornado por CommerceServerStoreAPI.GetSellerInformation no "
                       "tiene etiqueta StoreID: " +
                           storeReply.xml(),
                       source);
        const std::string storeId = ids.item(0).text();
        const XmlNodeList details =
            backOfficeReply.selectNodes("descendant::Store[@StoreID='" + storeId + "']");
        if (details.length() == 0)
            raiseError(-11002,
                       "No se encontró en el XML retornado por "
                       "EjecutarOperacion.QDX_Obtener_Informacion_Minitiendas la información "
                       "de la tienda " +
                           storeId + ": " + backOfficeText,
                       source);
        auto ministore = std::make_shared<ZorvantaMinistore>();
        ministore->setXml(store, details.item(0));
        const std::string key = ministore->id();
        m_ministores->add(std::move(ministore), key);
    }
}

std::shared_ptr<VirtualDeposits> Seller::virtualDeposits()
{
    return withHandler("Seller:virtualDeposits ", [&] {
        if (!m_virtualDeposits->empty())
            return m_virtualDeposits;
        ConnectorBuffer reply(DovelAPI::kReplySize);
        ConnectorBuffer position(DovelAPI::kDepositPositionSize);
        std::int32_t count = 0;
        // One page only: a seller with more than 50 deposits sees the first 50.
        const std::int32_t code =
            erpLibrary().ListarDepositosVirtuales(50, position.data(), 0, &count, reply.data());
        if (code != 0)
            raiseError(-11001,
                       "APIDovel.ListarDepositosVirtuales falló con error " + std::to_string(code),
                       "Seller:virtualDeposits Property Get");
        XmlDocument document;
        if (!document.loadXML(reply.text()))
            raiseError(-10500,
                       "El XML retornado por APIDovel.ListarDepositosVirtuales está mal "
                       "construido: " +
                           reply.text(),
                       "Seller:Get virtualDeposits");
        for (const XmlNode &node : document.documentElement().childNodes()) {
            auto deposit = std::make_shared<VirtualDeposit>();
            deposit->setXml(node);
            const std::string key = deposit->id();
            m_virtualDeposits->add(std::move(deposit), key);
        }
        return m_virtualDeposits;
    });
}
