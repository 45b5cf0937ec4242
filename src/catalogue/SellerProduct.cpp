#include "catalogue/SellerProduct.h"

#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"
#include "stores/SellerTax.h"

namespace {

constexpr const char *kLetXml = "SellerProduct:Let xml";

[[noreturn]] void fail(const std::string &text, const XmlNode &node)
{
    raiseError(-10500, text + node.xml(), kLetXml);
}

} // namespace

SellerProduct::SellerProduct() : m_classDebugId(GetNextClassDebugID()) {}

void SellerProduct::setXml(const XmlNode &node)
{
    withHandler("SellerProduct:xml Property Set", [&] {
        if (!m_summaryRead)
            readSummary(node);
        if (!m_detailRead && node.selectNodes("//ObtenerDefinicionProducto").length() > 0)
            readDetail(node);
    });
}

void SellerProduct::readSummary(const XmlNode &node)
{
    const std::string api = "El XML retornado por APIDovel.ObtenerContenidoCategoria ";
    // The blank after the axis belongs to the queries.
    const XmlNodeList codes = node.selectNodes("descendant:: CodigoDovel");
    if (codes.length() == 0)
        fail(api + "no tiene etiqueta CodigoDovel: ", node);
    const XmlNode code = codes.item(0).firstChild();
    if (!code)
        fail(api + "no tiene valor para el CodigoDovel: ", node);
    m_dovelID = code.nodeValue();

    const XmlNodeList descriptions = node.selectNodes("descendant:: Descripcion");
    if (descriptions.length() == 0)
        fail(api + "no tiene etiqueta Descripcion: ", node);
    m_description = descriptions.item(0).text();

    const XmlNode reference = node.selectSingleNode("descendant:: Referencia");
    m_reference = reference ? reference.text() : std::string();
    m_summaryRead = true;
}

void SellerProduct::readDetail(const XmlNode &node)
{
    const std::string api = "El XML retornado por APIDovel.ObtenerDefinicionProducto ";
    // An empty price is no price.
    const auto price = [&](const std::string &element) {
        const XmlNodeList found = node.selectNodes(element);
        if (found.length() == 0)
            fail(api + "no tiene etiqueta " + element + ": ", node);
        const XmlNode text = found.item(0).firstChild();
        if (!text)
            fail(api + "no tiene valor para " + element + ": ", node);
        return text.nodeValue();
    };
    m_price1 = price("Precio1");
    m_price2 = price("Precio2");
    m_price3 = price("Precio3");

    m_taxes = std::make_shared<Taxes>();
    for (const XmlNode &taxNode : node.selectNodes("descendant-or-self::Impuesto")) {
        auto tax = std::make_shared<SellerTax>();
        tax->setXml(taxNode);
        m_taxes->add(tax);
    }
    m_detailRead = true;
}

void SellerProduct::getDetailInformation()
{
    withHandler("SellerProduct:getDetailInformation", [&] {
        if (m_detailRead)
            return;
        const Definition definition = readDefinition(0, m_dovelID, "");
        if (definition.code != 0)
            // Logged under the category's source, as the seller's support knows it.
            raiseError(-11001,
                       "La función APIDovel.ObtenerInformacionProducto retornó con error " +
                           std::to_string(definition.code) + " para el idDovel: " + m_dovelID,
                       "DovelCategory:startQuery");
        XmlDocument document;
        document.setProperty("SelectionLanguage", "XPath");
        if (!document.loadXML(definition.reply))
            raiseError(-10500,
                       "El XML retornado por APIDovel.ObtenerDefinicionProducto está mal "
                       "construido: " +
                           definition.reply + " para el idDovel: " + m_dovelID,
                       "SellerProduct:getDetailInformation");
        setXml(document.documentElement());
        // Read, even when the reply held nothing to read: the ERP is not asked again.
        m_detailRead = true;
    });
}

const std::string &SellerProduct::price1()
{
    getDetailInformation();
    return m_price1;
}

const std::string &SellerProduct::price2()
{
    getDetailInformation();
    return m_price2;
}

const std::string &SellerProduct::price3()
{
    getDetailInformation();
    return m_price3;
}

std::shared_ptr<SellerProduct::Taxes> SellerProduct::taxes()
{
    getDetailInformation();
    return m_taxes;
}
