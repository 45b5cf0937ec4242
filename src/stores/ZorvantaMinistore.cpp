#include "stores/ZorvantaMinistore.h"

#include "gateways/CommerceServer.h"
#include "gateways/DovelAPI.h"
#include "gateways/QDX.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/db/Connection.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "stores/DatabaseFailure.h"
#include "stores/NumberText.h"
#include "stores/ReplyReader.h"
#include "stores/Seller.h"
#include "stores/SellerTax.h"

namespace {

const std::string kStoreReply = "El XML retornado por CommerceServerStoreAPI.GetSellerInformation";
const std::string kBackOfficeReply =
    "El XML retornado por el QDX en EjecutarOperacion QDX_Obtener_Informacion_Minitiendas";
const std::string kTaxesReply =
    "El XML retornado por QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos";

std::string requiredStoreValue(const ReplyReader &reader, const XmlNode &node,
                               const std::string &party, const std::string &element)
{
    return reader.required(node, "descendant::" + element,
                           party + " no tiene etiqueta " + element + ": ",
                           party + " no tiene valor para " + element + ": ");
}

std::int16_t countOf(Connection &connection, const Sql &statement)
{
    Recordset counted = connection.execute(statement);
    const std::int16_t count = toInt16(counted.fieldNumber(0));
    counted.close();
    return count;
}

} // namespace

ZorvantaMinistore::ZorvantaMinistore() : m_classDebugId(GetNextClassDebugID()) {}

void ZorvantaMinistore::setXml(const XmlNode &storeNode, const XmlNode &backOfficeNode)
{
    // The numbers and texts below are lost on purpose: a store the replies describe badly stays
    // in the list with what could be read, and the pages show it as it is.
    try {
        const ReplyReader store(-10503, "ZorvantaMinistore:Let xml", storeNode.xml());
        m_id = requiredStoreValue(store, storeNode, kStoreReply, "StoreID");
        m_name = requiredStoreValue(store, storeNode, kStoreReply, "Name");
        const XmlNodeList description = storeNode.selectNodes("descendant::Description");
        if (description.length() > 0) {
            m_description.clear();
            if (const XmlNode text = description.item(0).firstChild())
                m_description = text.nodeValue();
        }
        m_totalPublishedProducts =
            wholeNumber(requiredStoreValue(store, storeNode, kStoreReply, "NumberOfProducts"));

        const ReplyReader backOffice(-10502, "ZorvantaMinistore:Let xml", backOfficeNode.xml());
        m_maxPublishedProducts = wholeNumber(
            requiredStoreValue(backOffice, backOfficeNode, kBackOfficeReply, "MaxProducts"));
        m_productId = wholeNumber(
            requiredStoreValue(backOffice, backOfficeNode, kBackOfficeReply, "ProductID"));
        m_status = requiredStoreValue(backOffice, backOfficeNode, kBackOfficeReply, "Status");
    } catch (...) {
    }
}

std::int16_t ZorvantaMinistore::totalPublishedBySeller() const
{
    Connection connection;
    return withHandler(
        "ZorvantaMinistore:Get Property totalPublishedBySeller",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            const std::int16_t published =
                countOf(connection, Sql() << "SELECT count(*) FROM WIPRODPUBL where IdTienda ='"
                                          << sqlText(m_id) << "'");
            const std::int16_t withdrawing =
                countOf(connection, Sql() << "SELECT count(*) FROM WIPRODPEND where IdTienda ='"
                                          << sqlText(m_id) << "' AND Estado = 'E'");
            connection.close();
            return toInt16(static_cast<double>(published) - withdrawing);
        },
        [&] { applyDatabaseFailureRule(connection, "ZorvantaMinistore:totalPublishedBySeller"); });
}

bool ZorvantaMinistore::validateUser()
{
    return withHandler("ZorvantaMinistore:validateUser Method", [&] {
        const std::string source = "ZorvantaMinistore:ValidateUser";
        XmlDocument request;
        XmlNode root = request.appendChild(request.createElement("ValidateUser"));
        root.appendChild(request.createElement("UserName")).setText(m_username);
        root.appendChild(request.createElement("Password")).setText(m_password);
        root.appendChild(request.createElement("Store")).setAttribute("StoreID", m_id);

        const std::string reply =
            callQdxOperation(QdxOperation::ValidarUsuario, gSeller->sessionId(), request.xml(),
                             "QDX_Validar_Usuario: ", source);
        XmlDocument answer;
        if (!answer.loadXML(reply))
            raiseError(-10502,
                       "El XML retornado por EjecutarOperacion (ValidarUsuario) está mal "
                       "construido: " +
                           reply,
                       source);
        if (!Commerce_IsResult(answer))
            raiseError(-10502,
                       "El XML retornado por EjecutarOperacion (ValidarUsuario) no es un resultado",
                       source);
        if (!Commerce_IsError(answer))
            return true;
        const std::int32_t refused = Commerce_ErrorNumber(answer);
        // -8000 is the back office refusing the credentials: an answer, not a failure.
        if (refused == -8000)
            return false;
        raiseError(refused, Commerce_ErrorDescription(answer), source);
    });
}

std::shared_ptr<SellerTaxes> ZorvantaMinistore::getTaxesFromSeller()
{
    return withHandler("ZorvantaMinistore:getTaxesFromSeller", [&] {
        if (m_taxes)
            return m_taxes;
        const std::string source = "ZorvantaMinistore:getTaxesFromSeller";
        ConnectorBuffer buffer(DovelAPI::kReplySize);
        const std::int32_t code = erpLibrary().ObtenerImpuestos(buffer.data());
        if (code != 0)
            raiseError(-11001,
                       "La función APIDovel.ObtenerImpuestos retornó con error " +
                           std::to_string(code),
                       source);
        const std::string reply = buffer.text();
        XmlDocument document;
        document.setProperty("SelectionLanguage", "XPath");
        if (!document.loadXML(reply))
            raiseError(-10500,
                       "El XML retornado por APIDovel.ObtenerImpuestos está mal construido: " +
                           reply,
                       source);
        m_taxes = std::make_shared<SellerTaxes>();
        for (const XmlNode &node : document.selectNodes("descendant-or-self::Impuesto")) {
            auto tax = std::make_shared<SellerTax>();
            tax->setXml(node);
            m_taxes->add(std::move(tax));
        }
        return m_taxes;
    });
}

bool ZorvantaMinistore::setTaxesInZorvanta()
{
    return withHandler("ZorvantaMinistore:setTaxesInZorvanta", [&] {
        const std::shared_ptr<SellerTaxes> taxes = getTaxesFromSeller();
        if (!taxes)
            return false;
        const std::string source = "ZorvantaMinistore:setTaxesInZorvanta";
        XmlDocument request;
        XmlNode root = request.appendChild(request.createElement("SetTaxes"));
        root.appendChild(request.createElement("StoreID")).setText(m_id);
        root.appendChild(request.createElement("SellerID")).setText(gSeller->id());
        XmlNode taxList = root.appendChild(request.createElement("Taxes"));
        for (const std::shared_ptr<SellerTax> &tax : *taxes) {
            XmlNode element = taxList.appendChild(request.createElement("Tax"));
            element.appendChild(request.createElement("TaxID")).setText(tax->id());
            // The marketplace numbers amount types from 1; every tax carries its amount here,
            // whatever its type.
            const std::string amountType = tax->amountType() == 0   ? "1"
                                           : tax->amountType() == 1 ? "2"
                                                                    : "";
            element.appendChild(request.createElement("AmountType")).setText(amountType);
            element.appendChild(request.createElement("Amount")).setText(tax->quantity());
        }

        const std::string requestText = request.xml();
        const std::string reply =
            callQdxOperation(QdxOperation::SincronizarImpuestos, gSeller->sessionId(),
                             requestText, "QDX_Sincronizar_Impuestos : ", source);
        XmlDocument answer;
        if (!answer.loadXML(reply))
            raiseError(-10502,
                       "XML de retorno de QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos "
                       "está mal construído " +
                           reply,
                       source + " ");
        if (Commerce_IsError(answer))
            raiseError(Commerce_ErrorNumber(answer), Commerce_ErrorDescription(answer), source);
        if (!request.loadXML(reply))
            raiseError(-10502, "XML mal construído " + requestText,
                       "ZorvantaMinistore:setTaxesZorvanta ");

        const ReplyReader reader(-10502, kDefaultErrorSource, reply);
        const XmlNodeList answers = request.selectNodes("//Taxes");
        if (answers.length() == 0)
            reader.raise("XML retornado por QDX.dll en EjecutarOperacion "
                         "QDX_Sincronizar_Impuestos no tiene nodo Taxes: ");
        for (const XmlNode &taxAnswer : answers.item(0).childNodes()) {
            const auto value = [&](const std::string &element) {
                return reader.required(taxAnswer, "descendant::" + element,
                                       kTaxesReply + " no tiene etiqueta " + element + " : ",
                                       kTaxesReply + " no tiene valor para " + element + " : ");
            };
            value("TaxID");
            const std::string returnCode = value("RETURNCODE");
            if (returnCode != "0")
                raiseError(wholeNumber(returnCode),
                           kTaxesReply + " dió error para un impuesto : " + reply);
            value("DESCRIPTION");
        }
        return true;
    });
}
