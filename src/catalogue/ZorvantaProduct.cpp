#include "catalogue/ZorvantaProduct.h"

#include "catalogue/MarketplaceCalls.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "gateways/CommerceServer.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

namespace {

constexpr const char *kLetXml = "ZorvantaProduct:Let xml";
constexpr const char *kGetProperties = "ZorvantaProduct:Get properties";
constexpr const char *kCategoryContent =
    "El XML retornado por CommerceServerCatalogInfoAPI.GetCategoryContent ";
constexpr const char *kProductInformation =
    "El XML retornado por CommerceServerCatalogInfoAPI.GetProductInformation ";
constexpr const char *kProductDefinitions =
    "El XML retornado por CommerceServerCatalogInfoAPI.GetProductDefinitions ";

// The text of the first child of the node's first `Field` with that id; a field that is
// missing or empty fails, since a product always has a name and a description.
std::string requiredField(const XmlNode &node, const std::string &fieldId)
{
    const XmlNodeList fields = node.selectNodes("descendant:: Field [@fieldID='" + fieldId + "']");
    if (fields.length() == 0)
        raiseError(-10503,
                   std::string(kCategoryContent) + "no tiene etiqueta Field FieldID=" + fieldId +
                       ": " + node.xml(),
                   kLetXml);
    const XmlNode text = fields.item(0).firstChild();
    if (!text)
        raiseError(-10503,
                   std::string(kCategoryContent) + "no tiene valor para Field FieldID=" + fieldId +
                       ": " + node.xml(),
                   kLetXml);
    return text.nodeValue();
}

void removeIfHeld(auto &collection, const std::string &key)
{
    if (collection->contains(key))
        collection->remove(key);
}

} // namespace

ZorvantaProduct::ZorvantaProduct() : m_classDebugId(GetNextClassDebugID()) {}

void ZorvantaProduct::setXml(const XmlNode &node)
{
    withHandler("ZorvantaProduct:xml Property Set", [&] {
        if (m_isDefinition)
            readDefinitionNode(node);
        else
            readProductNode(node);
    });
}

void ZorvantaProduct::readProductNode(const XmlNode &node)
{
    if (!node.attributes())
        raiseError(-10503,
                   std::string(kCategoryContent) +
                       "no tiene atributos para el producto: " + node.xml(),
                   kLetXml);
    const std::optional<std::string> id = node.getAttribute("id");
    if (!id)
        raiseError(-10503,
                   std::string(kCategoryContent) +
                       "no tiene el atributo id del producto: " + node.xml(),
                   kLetXml);
    m_id = *id;
    m_description = requiredField(node, "Description");
    m_name = requiredField(node, "Name");
}

std::shared_ptr<ZorvantaProperty> ZorvantaProduct::propertyFor(const XmlNode &propertiesDefinition,
                                                               const std::string &fieldId) const
{
    // Built as it stands: an id with an apostrophe breaks the query.
    const XmlNodeList found =
        propertiesDefinition.selectNodes("descendant:: Property [@id='" + fieldId + "']");
    if (found.length() == 0)
        raiseError(-10503,
                   "No se encontró la propiedad " + fieldId +
                       " en la lista de PropertiesDefinition: " + propertiesDefinition.xml(),
                   kLetXml);
    auto property = std::make_shared<ZorvantaProperty>();
    property->setVariantIndicator(false);
    property->setXml(found.item(0));
    return property;
}

void ZorvantaProduct::createGroups()
{
    m_characteristic = std::make_shared<Properties>();
    m_nonCharacteristic = std::make_shared<Properties>();
    m_variant = std::make_shared<Properties>();
    m_properties = std::make_shared<Properties>();
}

void ZorvantaProduct::readDefinitionNode(const XmlNode &node)
{
    const auto fail = [&](const std::string &what) {
        raiseError(-10503, std::string(kProductDefinitions) + what + node.xml(), kLetXml);
    };
    const XmlNode propertiesDefinition = node.selectSingleNode("//PropertiesDefinition");
    if (!propertiesDefinition)
        fail("no tiene el nodo PropertiesDefinition: ");
    const XmlNode definition = node.selectSingleNode("//Definition");
    if (!definition)
        fail("no tiene el nodo Definition: ");
    if (!definition.attributes())
        fail("no tiene atributos para la definición del producto: ");
    const std::optional<std::string> name = definition.getAttribute("name");
    if (!name)
        fail("no tiene el atributo name para la definición del producto: ");
    m_id = *name;
    createGroups();

    // Fixed properties first, then the variant ones; a variant property that is not
    // characteristic is one more thing for the seller to fill in.
    for (const bool variantList : {false, true}) {
        const std::string which = variantList ? "variant: " : "no variant: ";
        const XmlNodeList listed =
            definition.selectNodes(variantList ? "descendant-or-self::VariantProperties/Property"
                                               : "descendant-or-self::Properties/Property");
        for (const XmlNode &entry : listed) {
            if (!entry.attributes())
                fail("no tiene atributos para uno de los atributos " + which);
            const std::optional<std::string> id = entry.getAttribute("id");
            if (!id)
                fail("no tiene el atributo id para uno de los atributos " + which);
            const auto property = propertyFor(propertiesDefinition, *id);
            if (!variantList) {
                m_properties->add(property, *id);
                (property->characteristic() ? m_characteristic : m_nonCharacteristic)
                    ->add(property, *id);
                continue;
            }
            property->setVariantIndicator(property->characteristic());
            (property->characteristic() ? m_variant : m_nonCharacteristic)->add(property, *id);
            m_properties->add(property, *id);
        }
    }
}

std::shared_ptr<ZorvantaProduct::Properties> ZorvantaProduct::properties()
{
    return withHandler("ZorvantaProduct:Get Properties", [&] {
        // Read once and for all; a definition never asks the service.
        if (!m_properties && !m_isDefinition)
            loadProperties();
        return m_properties;
    });
}

void ZorvantaProduct::loadProperties()
{
    const std::string storeId = firstMinistoreId(kGetProperties);
    readProperties(callMarketplace(gCatalogInfoClient, "GetProductInformation", {m_id, storeId}));
}

void ZorvantaProduct::readProperties(const std::string &reply)
{
    XmlDocument document;
    document.setProperty("SelectionLanguage", "XPath");
    loadMarketplaceReply(document, reply, "CommerceServerCatalogInfoAPI.GetProductInformation",
                         kGetProperties, kGetProperties);
    const auto fail = [&](const std::string &what) {
        raiseError(-10503, std::string(kProductInformation) + what + reply, kGetProperties);
    };

    const XmlNode propertiesDefinition = document.selectSingleNode("//PropertiesDefinition");
    if (!propertiesDefinition)
        fail("no tiene el nodo PropertiesDefinition: ");
    const XmlNode product = document.selectSingleNode("//Product");
    if (!product)
        fail("no tiene el nodo Product: ");
    if (!product.attributes())
        fail("no tiene atributos para el producto: ");
    const std::optional<std::string> definition = product.getAttribute("Definition");
    if (!definition)
        fail("no tiene el atributo definition: ");
    m_productDefinition = *definition;
    createGroups();
    m_values = std::make_shared<Values>();

    const auto fieldIdOf = [&](const XmlNode &field, const char *kind) {
        if (!field.attributes())
            fail(std::string("no tiene atributos para una propiedad ") + kind + ": ");
        const std::optional<std::string> id = field.getAttribute("fieldID");
        if (!id)
            fail("no tiene el atributo fieldID: : ");
        return *id;
    };
    const auto addValue = [&](const std::shared_ptr<ZorvantaProperty> &property,
                              const XmlNode &field, const std::string &id) {
        auto value = std::make_shared<ZorvantaValue>();
        value->setDefinition(property);
        value->setXml(field);
        if (!value->value().empty())
            m_values->add(value, id);
    };

    for (const XmlNode &field : product.selectNodes("descendant-or-self::Product/Field")) {
        const std::string id = fieldIdOf(field, "no variable");
        const auto property = propertyFor(propertiesDefinition, id);
        m_properties->add(property, id);
        (property->characteristic() ? m_characteristic : m_nonCharacteristic)->add(property, id);
        addValue(property, field, id);
    }

    const XmlNode variants = product.selectSingleNode("descendant::VariantProperties");
    if (variants) {
        const XmlNodeList fields = variants.selectNodes("descendant::Field");
        // The first field of the group is the variant's own id, never a property to show.
        for (std::int32_t i = 1; i < fields.length(); ++i) {
            const XmlNode field = fields.item(i);
            const std::string id = fieldIdOf(field, "variable");
            const auto property = propertyFor(propertiesDefinition, id);
            property->setVariantIndicator(property->characteristic());
            (property->characteristic() ? m_variant : m_nonCharacteristic)->add(property, id);
            addValue(property, field, id);
            m_properties->add(property, id);
        }
    }

    // The seller's side supplies its own ERP code when sending: never shown, never edited.
    removeIfHeld(m_properties, "ERPID");
    removeIfHeld(m_characteristic, "ERPID");
    removeIfHeld(m_nonCharacteristic, "ERPID");
    removeIfHeld(m_values, "ERPID");
    removeIfHeld(m_variant, "ERPID");
}

std::shared_ptr<ZorvantaProduct::Properties>
ZorvantaProduct::group(std::shared_ptr<Properties> ZorvantaProduct::*member)
{
    if (!m_properties && !m_isDefinition)
        properties();
    if (!m_properties)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    if (m_properties->empty() && !m_isDefinition)
        properties();
    return this->*member;
}

std::shared_ptr<ZorvantaProduct::Properties> ZorvantaProduct::CharacteristicProperties()
{
    return group(&ZorvantaProduct::m_characteristic);
}

std::shared_ptr<ZorvantaProduct::Properties> ZorvantaProduct::variantProperties()
{
    return group(&ZorvantaProduct::m_variant);
}

std::shared_ptr<ZorvantaProduct::Properties> ZorvantaProduct::NonCharacteristicProperties()
{
    return group(&ZorvantaProduct::m_nonCharacteristic);
}

std::shared_ptr<ZorvantaProduct::Values> ZorvantaProduct::values()
{
    if (!m_values)
        properties();
    return m_values;
}

std::shared_ptr<ZorvantaProperty> ZorvantaProduct::GetProperty(const std::string &id)
{
    return withHandler("ZorvantaProduct:GetProperty Method", [&] {
        if (!m_properties)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        return m_properties->item(id);
    });
}

std::shared_ptr<ZorvantaValue> ZorvantaProduct::GetValue(const std::string &id)
{
    if (!m_values)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return m_values->item(id);
}
