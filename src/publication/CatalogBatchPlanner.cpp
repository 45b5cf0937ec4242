#include "publication/CatalogBatchPlanner.h"

#include "catalogue/SellerProduct.h"
#include "gateways/QDX.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ErrorHandling.h"
#include "stores/NumberText.h"
#include "stores/Seller.h"
#include "stores/SellerTax.h"
#include "stores/ZorvantaMinistore.h"

namespace {

constexpr const char *kDeclaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";

/// The taxes of the ERP product as the request names them; empty when it has none.
std::string taxesOf(const std::string &dovelID)
{
    auto product = std::make_shared<SellerProduct>();
    product->setDovelID(dovelID);
    const std::shared_ptr<SellerProduct::Taxes> taxes = product->taxes();
    if (!taxes || taxes->count() == 0)
        return {};
    std::string text = "<Taxes>";
    for (const std::shared_ptr<SellerTax> &tax : *taxes)
        text += tax->xml();
    return text + "</Taxes>";
}

/// Moves the fields of one attribute document into the two lists; `inHand` follows each field
/// moved, as the merge relies on.
void moveFields(const XmlDocument &source, XmlNode &properties, XmlNode &variantProperties,
                XmlNode &inHand)
{
    const XmlNode root = source.documentElement();
    for (const XmlNode &field : root.selectNodes("descendant::Properties/Field"))
        inHand = properties.appendChild(field);
    for (const XmlNode &field : root.selectNodes("descendant::VariantProperties/Field"))
        inHand = variantProperties.appendChild(field);
}

} // namespace

std::string CatalogBatch::wireText() const
{
    const std::size_t end = request.find("?>");
    return end == std::string::npos ? request : request.substr(end + 2);
}

CatalogBatchPlanner::CatalogBatchPlanner(const ZorvantaMinistore &ministore,
                                         std::vector<dbPublication> rows, std::int16_t batchLimit)
    : m_header(std::string(kDeclaration) + "<CatalogOperation><SellerID>" + gSeller->id() +
               "</SellerID><ProductLicense>" + gSeller->license() + "</ProductLicense><StoreID>" +
               ministore.id() + "</StoreID><MaxProducts>" +
               std::to_string(ministore.maxPublishedProducts()) + "</MaxProducts><Operations>"),
      m_rows(std::move(rows)), m_batchLimit(batchLimit)
{
}

std::int16_t CatalogBatchPlanner::backOfficeLimit()
{
    const std::int16_t limit = toInt16(static_cast<double>(gOperationLimits.item("300").item("9")));
    if (limit < 1)
        raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
    return limit;
}

CatalogBatch CatalogBatchPlanner::next()
{
    CatalogBatch batch;
    batch.request = m_header;
    while (m_position < m_rows.size() && batch.operations < m_batchLimit) {
        batch.request += operationOf(m_rows[m_position], batch);
        ++m_position;
        ++batch.operations;
    }
    batch.request += "</Operations></CatalogOperation>";
    XmlDocument check;
    if (!check.loadXML(batch.request))
        raiseError(-10501, "XML mal construído " + batch.request,
                   "ZorvantaMinistore:SendPendingPublications ");
    return batch;
}

std::string CatalogBatchPlanner::operationOf(const dbPublication &row, CatalogBatch &batch)
{
    std::string merged;
    if (row.status != "E") {
        merged = merge(std::string(kDeclaration) + "<AtributosNoCaracteristicos>" +
                           row.nonCharacteristicAttributes + "</AtributosNoCaracteristicos>",
                       std::string(kDeclaration) + "<AtributosCaracteristicos>" + m_characteristic +
                           "</AtributosCaracteristicos>",
                       taxesOf(row.dovelID));
    }
    // Only now: the next row carries this row's characteristic fields.
    m_characteristic = row.characteristicAttributes;

    std::string word;
    if (row.status == "I") {
        word = "Publicar";
        batch.publishRows.push_back(row.publicationId);
    } else if (row.status == "A") {
        word = "Actualizar";
    } else if (row.status == "E") {
        word = "Despublicar";
    }
    const std::string opening = "<Operation PublicationID='" + std::to_string(row.publicationId) +
                                "'><Operation>" + word + "</Operation><ZorvantaID>" +
                                row.zorvantaId + "</ZorvantaID>";
    if (row.status == "E")
        return opening + "</Operation>";
    return opening + merged + "</Operation>";
}

std::string CatalogBatchPlanner::merge(const std::string &nonCharacteristic,
                                       const std::string &characteristic, const std::string &taxes)
{
    return withHandler("ZorvantaMinistore:merge Method", [&] {
        const std::string source = "ZorvantaMinistore:merge ";
        XmlDocument merged;
        XmlNode properties = merged.createElement("Properties");
        XmlNode variantProperties = merged.createElement("VariantProperties");
        XmlNode inHand;

        XmlDocument attributes;
        if (!attributes.loadXML(nonCharacteristic))
            raiseError(-10501,
                       "XML de atributos no característicos mal construído " + nonCharacteristic,
                       source);
        moveFields(attributes, properties, variantProperties, inHand);
        if (!attributes.loadXML(characteristic))
            // The message quotes the other text; the seller's support knows it so.
            raiseError(-10501,
                       "XML de atributos característicos mal construído " + nonCharacteristic,
                       source);
        moveFields(attributes, properties, variantProperties, inHand);

        if (!taxes.empty()) {
            inHand = merged.createElement("Field");
            inHand.appendChild(merged.createCDATASection(taxes));
            inHand.setAttribute("fieldID", "TAXCONFIG");
        }
        if (variantProperties.firstChild()) {
            merged.appendChild(inHand);
            return variantProperties.xml() + properties.xml();
        }
        properties.appendChild(inHand);
        return properties.xml();
    });
}
