#include "stores/SellerTax.h"

#include "platform/xml/XmlNode.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"
#include "stores/NumberText.h"
#include "stores/ReplyReader.h"

namespace {
const std::string kTaxReply = "El XML retornado por APIDovel.ObtenerImpuestos no tiene ";
} // namespace

SellerTax::SellerTax() : m_classDebugId(GetNextClassDebugID()) {}

void SellerTax::setXml(const XmlNode &node)
{
    withHandler("SellerTax:xml Property Set", [&] {
        const ReplyReader reader(-10500, "SellerTax:Let xml", node.xml());
        const auto attributeCount = node.attributes();
        if (attributeCount && *attributeCount > 0) {
            const auto code = node.getAttribute("CodigoImpuesto");
            if (!code)
                reader.raise(kTaxReply + "el atributo CodigoImpuesto del impuesto: ");
            m_id = *code;
        }
        // The ERP's selections carry a blank after the axis, and are sent so.
        if (auto code = reader.optional(node, "descendant:: CodigoImpuesto",
                                        kTaxReply + "valor para el CodigoImpuesto: "))
            m_id = *code;
        if (auto description = reader.optional(node, "descendant:: DescripcionImpuesto",
                                               kTaxReply + "valor para el DescripcionImpuesto: "))
            m_description = *description;
        m_taxType = "G";
        if (auto type = reader.optional(node, "descendant:: TipoImpuesto",
                                        kTaxReply + "valor para el TipoImpuesto: "))
            m_taxType = *type;
        m_quantity =
            reader.required(node, "descendant:: Cantidad",
                            kTaxReply + "etiqueta Cantidad: ", kTaxReply + "valor para Cantidad: ");
        m_amountType = toInt16(reader.required(
            node, "descendant:: TipoMonto",
            kTaxReply + "etiqueta TipoMonto: ", kTaxReply + "valor para TipoMonto: "));
    });
}

std::string SellerTax::xml() const
{
    const std::string head = "<Tax><TaxID>" + m_id + "</TaxID>";
    const std::string amount = "<Amount>" + m_quantity + "</Amount></Tax>";
    if (m_taxType == "G")
        return head + "<AmountType>0</AmountType></Tax>";
    if (m_taxType == "L" && m_amountType == 0)
        return head + "<AmountType>1</AmountType>" + amount;
    if (m_taxType == "L" && m_amountType == 1)
        return head + "<AmountType>2</AmountType>" + amount;
    return {};
}
