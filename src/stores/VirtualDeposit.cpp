#include "stores/VirtualDeposit.h"

#include "platform/db/Connection.h"
#include "platform/xml/XmlNode.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"
#include "stores/DatabaseFailure.h"
#include "stores/ReplyReader.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <QString>

namespace {

const std::string kDepositsReply =
    "El XML retornado por APIDovel.ListarDepositosVirtuales no tiene ";
// The width of WITIENDAS.Descrip.
constexpr int kStoredNameLength = 40;

bool anyCounted(Connection &connection, const Sql &statement)
{
    Recordset counted = connection.execute(statement);
    const bool any = counted.fieldNumber(0) > 0;
    counted.close();
    return any;
}

std::string storedName(const std::string &name)
{
    return QString::fromStdString(name).left(kStoredNameLength).toStdString();
}

} // namespace

VirtualDeposit::VirtualDeposit() : m_classDebugId(GetNextClassDebugID()) {}

const ZorvantaMinistore &VirtualDeposit::linkedMinistore() const
{
    if (!m_ministore)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *m_ministore;
}

void VirtualDeposit::setXml(const XmlNode &node)
{
    withHandler("VirtualDeposit:xml Property Set", [&] {
        const ReplyReader reader(-10500, "VirtualDeposit:Let xml", node.xml());
        const auto attributeCount = node.attributes();
        if (!attributeCount || *attributeCount == 0)
            reader.raise(kDepositsReply + "atributos para un depósito virtual: ");
        const auto code = node.getAttribute("Codigo");
        if (!code)
            reader.raise(kDepositsReply + "el atributo Codigo para el depósito virtual: ");
        m_id = *code;
        // The ERP's selections carry a blank after the axis, and are sent so.
        m_description = reader.required(
            node, "descendant:: Descripcion",
            kDepositsReply + "etiqueta Descripcion: ", kDepositsReply + "valor para Descripcion: ");
        const XmlNodeList address = node.selectNodes("descendant:: DireccionFisica");
        if (address.length() > 0 && address.item(0).firstChild())
            m_address = address.item(0).firstChild().nodeValue();

        const XmlNodeList link = node.selectNodes("descendant::Minitienda");
        if (link.length() == 0)
            return;
        // A link the marketplace does not confirm is fatal below, whatever stopped the look-up.
        std::string ministoreId;
        try {
            ministoreId = link.item(0).firstChild().nodeValue();
        } catch (...) {
        }
        if (const auto ministores = gSeller->ministores()) {
            if (const auto *found = ministores->find(ministoreId))
                m_ministore = *found;
        }
        if (!m_ministore)
            raiseError(-11004,
                       "La información de la minitienda " + ministoreId +
                           " para el depósito virtual " + m_id +
                           " no fue retornada en la llamada a sorvek",
                       "VirtualDeposit:Let xml");
    });
}

void VirtualDeposit::CreateAssociation()
{
    Connection connection;
    withHandler(
        "VirtualDeposit:CreateAssociation Method",
        [&] {
            const std::string source = "VirtualDeposit:CreateAssociation";
            connection.open(gSeller->connectionString(), 15);
            const ZorvantaMinistore &ministore = linkedMinistore();
            if (anyCounted(connection, Sql() << "SELECT count(*) FROM WITIENDAS where IdTienda ='"
                                             << sqlText(ministore.id()) << "'")) {
                connection.close();
                raiseError(-10002, "Existe una asociación a la minitienda " + ministore.id(),
                           source);
            }
            if (anyCounted(connection, Sql()
                                           << "SELECT count(*) FROM WITIENDAS where IDDepoVDOVEL ='"
                                           << sqlText(m_id) << "'")) {
                connection.close();
                raiseError(-10003, "Existe una asociación al depósito virtual " + m_id, source);
            }
            connection.execute(Sql() << "INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) "
                                        "values ('"
                                     << sqlText(ministore.id()) << "','"
                                     << sqlText(storedName(ministore.name())) << "','"
                                     << sqlText(m_id) << "')");
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "VirtualDeposit:CreateAssociation:"); });
}

void VirtualDeposit::RemoveAssociation()
{
    Connection connection;
    withHandler(
        "VirtualDeposit:RemoveAssociation Method",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            const ZorvantaMinistore &ministore = linkedMinistore();
            if (anyCounted(connection, Sql() << "SELECT count(*) FROM WIPRODPUBL where IdTienda ='"
                                             << sqlText(ministore.id()) << "'")) {
                connection.close();
                raiseError(-10004,
                           "No se puede remover la asociación al depósito virtual porque existen "
                           "productos publicados en la minitienda asociada: " +
                               ministore.name(),
                           "VirtualDeposit:RemoveAssociation");
            }
            connection.execute(Sql()
                               << "DELETE WITIENDAS WHERE IdTienda = '" << sqlText(ministore.id())
                               << "' AND IdDepoVDOVEL ='" << sqlText(m_id) << "'");
            connection.close();
            m_ministore = nullptr;
        },
        [&] { applyDatabaseFailureRule(connection, "VirtualDeposit:RemoveAssociation:"); });
}
