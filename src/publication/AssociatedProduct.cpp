#include "publication/AssociatedProduct.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/db/Connection.h"
#include "platform/xml/XmlDocument.h"
#include "publication/ErpReplyFields.h"
#include "shell/ClassDebugId.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "stores/DatabaseFailure.h"
#include "stores/Seller.h"

namespace {

constexpr const char *kLetXml = "AssociatedProduct:Let xml";
constexpr const char *kGetDetail = "AssociatedProduct:getDetailInformation";
const std::string kListApi = "El XML retornado por APIDovel.ObtenerContenidoCategoria ";
const std::string kDetailApi = "El XML retornado por APIDovel.ObtenerDefinicionProducto ";

[[noreturn]] void fail(const std::string &text, const XmlNode &node)
{
    raiseError(-10500, text + node.xml(), kLetXml);
}

std::string requiredText(const XmlNode &node, const std::string &query, const std::string &api,
                         const std::string &element)
{
    return requiredErpText(node, query, api, element, kLetXml);
}

const ZorvantaProperty &definitionOf(const std::shared_ptr<ZorvantaValue> &value)
{
    if (!value || !value->definition())
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *value->definition();
}

} // namespace

AssociatedProduct::AssociatedProduct() : m_classDebugId(GetNextClassDebugID()) {}

QDateTime AssociatedProduct::associationDate()
{
    getDetailInformation();
    return m_associationDate;
}

std::shared_ptr<SellerProduct> AssociatedProduct::theSellerProduct()
{
    if (!m_sellerProduct)
        m_sellerProduct = std::make_shared<SellerProduct>();
    return m_sellerProduct;
}

void AssociatedProduct::setSellerProd(std::shared_ptr<SellerProduct> product)
{
    m_sellerProduct = std::move(product);
}

void AssociatedProduct::setZorvantaProd(std::shared_ptr<ZorvantaProduct> product)
{
    m_zorvantaProduct = std::move(product);
}

std::shared_ptr<AssociatedProduct::Values> AssociatedProduct::variantattributes()
{
    return withHandler("AssociatedProduct:variantAttributes Property Get", [&] {
        if (!m_values)
            getDetailInformation();
        return m_values;
    });
}

void AssociatedProduct::setVariantattributes(std::shared_ptr<Values> values)
{
    m_values = std::move(values);
}

const std::string &AssociatedProduct::marketplaceId() const
{
    if (!m_zorvantaProduct)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return m_zorvantaProduct->id();
}

void AssociatedProduct::setXml(const XmlNode &node)
{
    withHandler("AssociatedProduct:xml Property Set", [&] {
        const bool isDetail = node.selectNodes("//ObtenerDefinicionProducto").length() > 0;
        // A table row re-read for the duplicate search holds the values and nothing else.
        const bool isAttributes =
            !isDetail && node.selectNodes("//AtributosCaracteristicos").length() > 0;
        if (!m_summaryRead && !isAttributes)
            readSummary(node);
        if (!m_detailRead) {
            if (isDetail)
                readAssociationDate(node);
            if (isDetail || isAttributes)
                readValues(node);
            if (isDetail)
                m_detailRead = true;
        }
        // The same line or detail fills the ERP side.
        if (!isAttributes)
            theSellerProduct()->setXml(node);
    });
}

void AssociatedProduct::readSummary(const XmlNode &node)
{
    // The blank after the axis belongs to the queries.
    m_associationId =
        requiredText(node, "descendant:: CodigoAsociacion", kListApi, "CodigoAsociacion");
    auto product = std::make_shared<ZorvantaProduct>();
    product->setId(requiredText(node, "descendant:: CodigoZorvanta", kListApi, "CodigoZorvanta"));
    product->setIsDefinition(false);
    m_zorvantaProduct = std::move(product);
    m_summaryRead = true;
}

void AssociatedProduct::readAssociationDate(const XmlNode &node)
{
    m_associationDate =
        convertToDate(requiredText(node, "FechaAsociacion", kDetailApi, "FechaAsociacion"));
}

void AssociatedProduct::readValues(const XmlNode &node)
{
    const XmlNodeList found = node.selectNodes("descendant-or-self::AtributosCaracteristicos");
    if (found.length() == 0)
        fail(kDetailApi + "no tiene etiqueta AtributosCaracteristicos: ", node);
    m_values = std::make_shared<Values>();
    if (!m_zorvantaProduct)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    const auto properties = m_zorvantaProduct->properties();
    if (!properties)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);

    const std::pair<const char *, const char *> groups[] = {
        {"descendant::Properties/Field", "fijos"},
        {"descendant::VariantProperties/Field", "variables"},
    };
    for (const auto &[query, kind] : groups)
        addFieldValues(found.item(0), query, *properties, *m_values,
                       kDetailApi + "tiene el campo AtributosCaracteristicos " + kind +
                           " con información de atributos incompleta: ",
                       node, kLetXml);
}

void AssociatedProduct::getDetailInformation()
{
    withHandler(kGetDetail, [&] {
        if (m_detailRead)
            return;
        const Definition definition = readDefinition(1, m_associationId, "");
        if (definition.code != 0)
            raiseError(-11001,
                       "La función APIDovel.ObtenerDefinicionProducto retornó con error: " +
                           std::to_string(definition.code) +
                           " para el id de asociación: " + m_associationId,
                       kGetDetail);
        XmlDocument document;
        document.setProperty("SelectionLanguage", "XPath");
        if (!document.loadXML(definition.reply))
            raiseError(-10500,
                       kDetailApi + "está mal construido: " + definition.reply +
                           " para el id de asociación: " + m_associationId,
                       kGetDetail);
        setXml(document.documentElement());
        m_detailRead = true;
    });
}

std::string AssociatedProduct::attributeText()
{
    const std::shared_ptr<Values> values = variantattributes();
    if (!values)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    XmlDocument document;
    XmlNode fixed = document.createElement("Properties");
    XmlNode variant = document.createElement("VariantProperties");
    for (const std::shared_ptr<ZorvantaValue> &value : *values)
        (definitionOf(value).isVariant() ? variant : fixed).appendChild(value->xml());
    return fixed.xml() + variant.xml();
}

bool AssociatedProduct::isStored(const std::string &attributes)
{
    const std::string text = "<?xml version='1.0' encoding='ISO-8859-1'?> "
                             "<AtributosCaracteristicos>" +
                             attributes + "</AtributosCaracteristicos>";
    XmlDocument document;
    if (!document.loadXML(text))
        raiseError(-10501,
                   "El XML construído para los atributos característicos está mal construido : " +
                       text,
                   "AssociatedProduct:CreateAssociation ");
    AssociatedProduct stored;
    stored.setZorvantaProd(m_zorvantaProduct);
    stored.setXml(document.documentElement());
    stored.setSellerProd(theSellerProduct());
    return isContained(stored);
}

void AssociatedProduct::CreateAssociation()
{
    Connection connection;
    withHandler(
        "AssociatedProduct:CreateAssociation Method",
        [&] {
            const std::string attributes = attributeText();
            const std::string dovelID = theSellerProduct()->dovelID();
            connection.open(gSeller->connectionString(), 15);
            // The blank after the marketplace id is the server's to ignore.
            Recordset stored = connection.execute(
                Sql() << "SELECT atributos FROM WIPRODASOC WHERE IdPrdDovel = '" << sqlText(dovelID)
                      << "'"
                      << " AND IdPrdZorvanta='" << sqlText(marketplaceId()) << " '");
            bool same = false;
            while (!same && !stored.eof()) {
                same = isStored(stored.fieldText(0));
                if (!same)
                    stored.moveNext();
            }
            stored.close();
            if (same) {
                connection.close();
                raiseError(-10000,
                           "Existe una asociación con igual identificador dovel, identificador "
                           "Zorvanta y atributos contenidos en la asociación previa",
                           "AssociatedProduct:CreateAssociation:");
            }

            m_associationDate = QDateTime::currentDateTime();
            connection.execute(Sql()
                               << "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, "
                                  "Atributos, FechaAsociado) values"
                               << "('" << sqlText(dovelID) << "','" << sqlText(marketplaceId())
                               << "','" << sqlText(attributes) << "', CONVERT(datetime, '"
                               << sqlText(convertToString(m_associationDate)) << "', 120) )");
            Recordset identity = connection.execute(Sql("SELECT @@IDENTITY"));
            m_associationId = identity.fieldText(0);
            identity.close();
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "AssociatedProduct:CreateAssociation:"); });
}

void AssociatedProduct::RemoveAssociation()
{
    Connection connection;
    withHandler(
        "AssociatedProduct:RemoveAssociation Method",
        [&] {
            connection.open(gSeller->connectionString(), 15);
            Recordset counted =
                connection.execute(Sql() << "SELECT count(*) FROM WIPRODPUBL where IdPrdAsociado ="
                                         << sqlNumber(m_associationId));
            if (counted.fieldNumber(0) != 0) {
                counted.close();
                connection.close();
                raiseError(-10001,
                           "No se puede remover la asociación porque existen productos publicados "
                           "con esa asociación",
                           "AssociatedProduct:RemoveAssociation");
            }
            counted.close();
            connection.execute(Sql() << "DELETE WIPRODASOC WHERE IdPrdAsociado = "
                                     << sqlNumber(m_associationId));
            connection.close();
        },
        [&] { applyDatabaseFailureRule(connection, "AssociatedProduct:RemoveAssociation:"); });
}

bool AssociatedProduct::isContained(AssociatedProduct &other)
{
    return withHandler("AssociatedProduct:isContained Method", [&] {
        if (theSellerProduct()->dovelID() != other.theSellerProduct()->dovelID() ||
            marketplaceId() != other.marketplaceId())
            return false;
        const std::shared_ptr<Values> mine = variantattributes();
        const std::shared_ptr<Values> stored = other.variantattributes();
        if (!mine || !stored)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        if (stored->empty() && !mine->empty())
            return false;
        // Compared as shown, separator and case included.
        for (const std::shared_ptr<ZorvantaValue> &value : *stored) {
            const std::shared_ptr<ZorvantaValue> *found = mine->find(definitionOf(value).id());
            if (!found || !*found || (*found)->value() != value->value())
                return false;
        }
        return true;
    });
}
