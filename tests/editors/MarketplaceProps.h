#pragma once

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/xml/XmlDocument.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

// Marketplace data for the editors' tests, benchmark and screenshots, read by the catalogue's
// own classes from the XML the marketplace sends.

/// One property as the marketplace defines it.
struct Prop
{
    enum Kind { Plain, Fixed, Variant };
    Prop(std::string id, std::string name, std::string type = "String", std::string maxValue = {},
         bool required = false, bool readOnly = false, Kind kind = Plain)
        : id(std::move(id)), name(std::move(name)), type(std::move(type)),
          maxValue(std::move(maxValue)), required(required), readOnly(readOnly), kind(kind)
    {
    }
    std::string id;
    std::string name;
    std::string type;
    std::string maxValue;
    bool required;
    bool readOnly;
    Kind kind;
    /// The display names of an enumeration.
    std::vector<std::string> choices;
};

using WireValues = std::vector<std::pair<std::string, std::string>>;

/// The fourteen properties of the price block, none required.
inline std::vector<Prop> priceBlock()
{
    std::vector<Prop> props{{"Cy_List_Price", "Precio de lista", "Currency"},
                            {"PromoPrice", "Precio promocional", "Currency"},
                            {"WholeSalePrice", "Precio mayorista", "Currency"},
                            {"WholeSaleQuantity", "Cantidad mayorista", "Integer", "9999"}};
    for (int group = 1; group <= 5; ++group) {
        const std::string n = std::to_string(group);
        props.push_back({"Group" + n + "Price", "Precio grupo " + n, "Currency"});
        props.push_back({"Group" + n + "Quantity", "Cantidad grupo " + n, "Integer", "9999"});
    }
    return props;
}

/// The properties of a marketplace definition holding `props`, read as the catalogue reads a
/// `GetProductDefinition` reply; plain properties carry type='NC'.
inline std::shared_ptr<ZorvantaProduct> readDefinition(const std::vector<Prop> &props)
{
    std::string definitions;
    std::string listed;
    std::string variants;
    for (const Prop &p : props) {
        definitions += "<Property name='" + p.name + "' id='" + p.id + "' dataType='" + p.type +
                       "' required='" + (p.required ? "yes" : "no") + "' readOnly='" +
                       (p.readOnly ? "yes" : "no") + "'" +
                       (p.maxValue.empty() ? "" : " MaxValue='" + p.maxValue + "'") +
                       (p.kind == Prop::Plain ? " type='NC'" : "") + ">";
        for (const std::string &choice : p.choices)
            definitions += "<PropertyValues displayName='" + choice + "'/>";
        definitions += "</Property>";
        (p.kind == Prop::Variant ? variants : listed) += "<Property id='" + p.id + "'/>";
    }
    XmlDocument document;
    document.loadXML("<ProductDefinition><PropertiesDefinition>" + definitions +
                     "</PropertiesDefinition><Definition name='pdPrueba'><Properties>" + listed +
                     "</Properties><VariantProperties>" + variants +
                     "</VariantProperties></Definition></ProductDefinition>");
    auto definition = std::make_shared<ZorvantaProduct>();
    definition->setIsDefinition(true);
    definition->setXml(document.documentElement());
    return definition;
}

/// Values as the catalogue reads them from `Field` elements of the wire (decimals with ".").
inline std::shared_ptr<ZorvantaProduct::Values> readValues(ZorvantaProduct::Properties &properties,
                                                           const WireValues &wire)
{
    std::string fields;
    for (const auto &[id, text] : wire)
        fields += "<Field fieldID='" + id + "'>" + text + "</Field>";
    XmlDocument document;
    document.loadXML("<Product>" + fields + "</Product>");
    auto values = std::make_shared<ZorvantaProduct::Values>();
    for (const XmlNode &field : document.selectNodes("//Field")) {
        const std::string id = *field.getAttribute("fieldID");
        auto value = std::make_shared<ZorvantaValue>();
        value->setDefinition(properties.item(id));
        value->setXml(field);
        values->add(value, id);
    }
    return values;
}

/// An ERP product with its three prices, read from its detail reply.
inline std::shared_ptr<SellerProduct>
erpProduct(const std::string &price1, const std::string &price2, const std::string &price3)
{
    XmlDocument document;
    document.loadXML("<ObtenerDefinicionProducto><CodigoDovel>ERP-0007</CodigoDovel>"
                     "<Descripcion>Taladro</Descripcion><Referencia>T-7</Referencia>"
                     "<Precio1>" +
                     price1 + "</Precio1><Precio2>" + price2 + "</Precio2><Precio3>" + price3 +
                     "</Precio3>"
                     "</ObtenerDefinicionProducto>");
    auto product = std::make_shared<SellerProduct>();
    product->setXml(document.documentElement());
    return product;
}
