#include "publication/PublishedProduct.h"

#include "catalogue/ZorvantaValue.h"
#include "platform/db/Connection.h"
#include "platform/xml/XmlDocument.h"
#include "publication/ErpReplyFields.h"
#include "shell/ClassDebugId.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "stores/DatabaseFailure.h"
#include "stores/NumberText.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <optional>

namespace {

constexpr const char *kLetXml = "PublishedProduct:Let xml";
constexpr const char *kGetDetail = "PublishedProduct:getDetailInformation";
const std::string kListApi = "El XML retornado por APIDovel.ObtenerContenidoCategoria ";
const std::string kDetailApi = "El XML retornado por APIDovel.ObtenerDefinicionProducto ";

[[noreturn]] void fail(const std::string &text, const XmlNode &node)
{
    raiseError(-10500, text + node.xml(), kLetXml);
}

/// The text of the first element `query` finds, when there is one and it holds something.
std::optional<std::string> optionalText(const XmlNode &node, const std::string &query)
{
    const XmlNode found = node.selectNodes(query).item(0);
    const XmlNode text = found ? found.firstChild() : XmlNode();
    if (!text)
        return std::nullopt;
    return text.nodeValue();
}

template <class T> T &required(const std::shared_ptr<T> &object)
{
    if (!object)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *object;
}

} // namespace

PublishedProduct::PublishedProduct() : m_classDebugId(GetNextClassDebugID()) {}

std::string PublishedProduct::errorMsg()
{
    getDetailInformation();
    return m_errorMsg;
}

std::int16_t PublishedProduct::ErrorNumber()
{
    // Reported under the send run's label, as it always was.
    return withHandler("ZorvantaMinistore:SendPendingPublications:", [&] {
        if (m_errorNumber == -1) {
            Connection connection;
            connection.open(gSeller->connectionString(), 15);
            Recordset found = connection.execute(
                Sql() << "SELECT Error FROM WIPRODPEND WHERE IdPrdPublicado = "
                      << sqlNumber(m_publicationId) << " and fechapublicado = CONVERT(datetime, '"
                      << sqlText(convertToString(m_publicationDate)) << "', 120)");
            m_errorNumber = toInt16(found.fieldNumber(0));
            found.close();
            connection.close();
        }
        return m_errorNumber;
    });
}

std::shared_ptr<AssociatedProduct> PublishedProduct::associatedProd()
{
    if (!m_associatedProd)
        m_associatedProd = std::make_shared<AssociatedProduct>();
    return m_associatedProd;
}

void PublishedProduct::setAssociatedProd(std::shared_ptr<AssociatedProduct> association)
{
    m_associatedProd = std::move(association);
}

void PublishedProduct::setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
{
    m_ministore = std::move(ministore);
}

std::shared_ptr<PublishedProduct::Values> PublishedProduct::nonCharateristicAttributes()
{
    return withHandler("PublishedProduct:nonCharateristicAttributes Property Get", [&] {
        if (!m_values || m_values->empty())
            getDetailInformation();
        return m_values;
    });
}

void PublishedProduct::setNonCharateristicAttributes(std::shared_ptr<Values> values)
{
    m_values = std::move(values);
}

std::shared_ptr<SellerProduct> PublishedProduct::sellerProduct()
{
    return associatedProd()->theSellerProduct();
}

void PublishedProduct::setXml(const XmlNode &node)
{
    withHandler("PublishedProduct:xml Property Set", [&] {
        if (!m_headerRead)
            readHeader(node);
        if (!m_detailRead)
            readDetail(node);
        // The same line or detail fills the association and its ERP product.
        associatedProd()->setXml(node);
    });
}

void PublishedProduct::readHeader(const XmlNode &node)
{
    // The blank after the axis belongs to the queries.
    m_publicationId = requiredErpText(node, "descendant:: CodigoPublicacion", kListApi,
                                      "CodigoPublicacion", kLetXml);
    if (std::optional<std::string> state = optionalText(node, "descendant:: Estado"))
        m_state = *state;
    const XmlNodeList date = node.selectNodes("FechaPublicacion");
    if (date.length() > 0) {
        const XmlNode text = date.item(0).firstChild();
        if (!text)
            fail(kDetailApi + "no tiene valor para FechaPublicacion: ", node);
        m_publicationDate = convertToDate(text.nodeValue());
    }
    m_headerRead = true;
}

void PublishedProduct::readDetail(const XmlNode &node)
{
    m_values = std::make_shared<Values>();
    // A list line carries no detail; it is asked for when needed.
    if (node.selectNodes("//ObtenerDefinicionProducto").length() == 0)
        return;
    if (m_publicationType == 2)
        m_publicationDate = convertToDate(
            requiredErpText(node, "FechaPublicacion", kDetailApi, "FechaPublicacion", kLetXml));
    if (std::optional<std::string> number = optionalText(node, "NumeroError"))
        m_errorNumber = toInt16(*number);
    if (std::optional<std::string> message = optionalText(node, "MensajeError"))
        m_errorMsg = *message;
    const XmlNode attributes = node.selectNodes("AtributosNoCaracteristicos").item(0);
    if (!attributes)
        fail(kDetailApi + "no tiene etiqueta AtributosNoCaracteristicos: ", node);
    readValues(attributes, node);
    m_detailRead = true;
}

void PublishedProduct::readValues(const XmlNode &attributes, const XmlNode &node)
{
    const auto properties = required(associatedProd()->theZorvantaProduct()).properties();
    const std::pair<const char *, const char *> groups[] = {
        {"descendant::Properties/Field", "no variables"},
        {"descendant::VariantProperties/Field", "variables"},
    };
    for (const auto &[query, kind] : groups)
        addFieldValues(attributes, query, required(properties), *m_values,
                       kDetailApi + "tiene el campo AtributosNoCaracteristicos " + kind +
                           " con información de atributos incompleta: ",
                       node, kLetXml);
}

void PublishedProduct::getDetailInformation()
{
    withHandler(kGetDetail, [&] {
        if (m_detailRead)
            return;
        std::string key;
        if (m_publicationType == 3)
            key = m_publicationId + "|" +
                  m_publicationDate.toString("yyyy-MM-dd hh:mm:ss").toStdString();
        else if (m_publicationType == 2)
            key = m_publicationId;
        else
            return;
        const Definition definition = readDefinition(m_publicationType, key, storeId());
        if (definition.code != 0)
            raiseError(-11001,
                       "La función APIDovel.ObtenerInformacionProducto retornó con error " +
                           std::to_string(definition.code),
                       kGetDetail);
        XmlDocument document;
        document.setProperty("SelectionLanguage", "XPath");
        if (!document.loadXML(definition.reply))
            raiseError(-10500, kDetailApi + "está mal construido ", kGetDetail);
        setXml(document.documentElement());
    });
}

std::string PublishedProduct::xml()
{
    return withHandler("PublishedProduct:xml Property Get", [&] {
        const bool variant =
            !required(required(associatedProd()->theZorvantaProduct()).variantProperties()).empty();
        XmlDocument document;
        XmlNode fixed = document.createElement("Properties");
        XmlNode variants = document.createElement("VariantProperties");
        // All values go to one of the two, by what the product is, never by the property.
        XmlNode &target = variant ? variants : fixed;
        for (const std::shared_ptr<ZorvantaValue> &value : required(m_values))
            target.appendChild(required(value).xml());
        return fixed.xml() + variants.xml();
    });
}

const std::string &PublishedProduct::storeId() const
{
    return required(m_ministore).id();
}

std::string PublishedProduct::storedState(Connection &connection)
{
    Recordset found =
        connection.execute(Sql() << "SELECT Estado FROM WIPRODPUBL where idPrdPublicado = "
                                 << sqlNumber(m_publicationId));
    std::string state = found.eof() ? std::string() : found.fieldText(0);
    found.close();
    return state;
}

void PublishedProduct::deletePendingChange(Connection &connection)
{
    connection.execute(Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado ="
                             << sqlNumber(m_publicationId)
                             << " AND (Estado = 'A' OR Estado = 'E')");
}

void PublishedProduct::CreatePublication()
{
    Connection connection;
    withHandler(
        "PublishedProduct:CreatePublication Method",
        [&] {
            const std::string attributes = xml();
            const std::string associationId = associatedProd()->associationId();
            connection.open(gSeller->connectionString(), 15);
            connection.begin();
            m_publicationDate = QDateTime::currentDateTime();
            const std::string date = convertToString(m_publicationDate);
            connection.execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                                        "Atributos, FechaPublicado) values"
                                     << "('" << sqlText(associationId) << "','"
                                     << sqlText(storeId()) << "', 'L', '" << sqlText(attributes)
                                     << "', CONVERT(datetime, '" << sqlText(date) << "', 120) )");
            Recordset identity = connection.execute(Sql("SELECT @@IDENTITY"));
            m_publicationId = identity.fieldText(0);
            identity.close();
            // The store id goes unquoted here, unlike in every other statement.
            connection.execute(Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, "
                                        "IdTienda, Estado, Atributos, FechaPublicado, NumInt) "
                                        "values"
                                     << "(" << sqlNumber(m_publicationId) << ","
                                     << sqlNumber(associationId) << "," << sqlNumber(storeId())
                                     << ", 'I', '" << sqlText(attributes)
                                     << "', CONVERT(datetime, '" << sqlText(date) << "', 120), 0)");
            connection.commit();
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "PublishedProduct:CreatePublication:"); });
}

void PublishedProduct::UpdatePublication()
{
    Connection connection;
    withHandler(
        "PublishedProduct:UpdatePublication Method",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            Recordset withdrawals = connection.execute(
                Sql() << "SELECT count(*) FROM WIPRODPEND where idPrdPublicado = "
                      << sqlNumber(m_publicationId) << " AND Estado = 'E'");
            const bool withdrawn = !withdrawals.eof() && withdrawals.fieldNumber(0) > 0;
            withdrawals.close();
            if (withdrawn)
                raiseError(-10006,
                           "La publicación no puede ser actualizada porque existe una operación "
                           "de eliminación para esta publicación",
                           "PublishedProduct:UpdatePublication:");
            if (storedState(connection) == "L") {
                // Both acts open connections and transactions of their own, so this one covers
                // nothing: a publication that never left the machine is simply published anew.
                connection.begin();
                RemovePublication();
                CreatePublication();
                connection.commit();
            } else {
                connection.begin();
                deletePendingChange(connection);
                const std::string date = convertToString(QDateTime::currentDateTime());
                const std::string attributes = xml();
                connection.execute(
                    Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                             "Estado, FechaPublicado, Atributos) values"
                          << "(" << sqlNumber(m_publicationId) << ","
                          << sqlNumber(associatedProd()->associationId()) << ",'"
                          << sqlText(storeId()) << "', 'A', CONVERT(datetime, '" << sqlText(date)
                          << "', 120),'" << sqlText(attributes) << "' )");
                connection.commit();
            }
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "PublishedProduct:UpdatePublication:"); });
}

void PublishedProduct::RemovePublication()
{
    Connection connection;
    withHandler(
        "PublishedProduct:RemovePublication Method",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            if (storedState(connection) == "L") {
                // The marketplace never heard of it: nothing is left to send.
                connection.begin();
                connection.execute(Sql() << "DELETE FROM WIPRODPEND where idPrdPublicado = "
                                         << sqlNumber(m_publicationId));
                connection.execute(Sql() << "DELETE FROM WIPRODPUBL where idPrdPublicado = "
                                         << sqlNumber(m_publicationId));
                connection.commit();
            } else {
                connection.begin();
                deletePendingChange(connection);
                const std::string date = convertToString(QDateTime::currentDateTime());
                connection.execute(
                    Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                             "Estado, FechaPublicado) values"
                          << "(" << sqlNumber(m_publicationId) << ","
                          << sqlNumber(associatedProd()->associationId()) << ",'"
                          << sqlText(storeId()) << "', 'E', CONVERT(datetime, '" << sqlText(date)
                          << "', 120) )");
                connection.commit();
            }
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "PublishedProduct:RemovePublication:"); });
}
