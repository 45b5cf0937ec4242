#pragma once

#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class XmlNode;
class ZorvantaProperty;
class ZorvantaValue;

/// A marketplace product, or a product template (a definition), with its properties in three
/// groups: characteristic, variant and non-characteristic. A product is born with its identity
/// from a category page and reads its properties and values from the service on first need; a
/// definition is born whole from its template and never calls the service.
class ZorvantaProduct
{
public:
    using Properties = Collection<std::shared_ptr<ZorvantaProperty>>;
    using Values = Collection<std::shared_ptr<ZorvantaValue>>;

    ZorvantaProduct();

    /// The product's id; a definition's template name.
    const std::string &id() const { return m_id; }
    void setId(std::string id) { m_id = std::move(id); }
    /// Empty for a definition.
    const std::string &name() const { return m_name; }
    const std::string &Description() const { return m_description; }
    /// The template the product follows; empty until its properties are read.
    const std::string &productDefinition() const { return m_productDefinition; }
    bool isDefinition() const { return m_isDefinition; }
    /// Set it before `setXml` for a definition.
    void setIsDefinition(bool isDefinition) { m_isDefinition = isDefinition; }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// A product: its `Product` element of a category page (id, name, description). A
    /// definition: a `ProductDefinition` element holding the `PropertiesDefinition` and one
    /// `Definition`, from which every property is read. A failure is reported (-10503) and
    /// leaves what was read so far.
    void setXml(const XmlNode &node);

    /// Every property, keyed by id, in reading order. A product reads them, with its values,
    /// in one call to the service the first time; after a failure, reported, this first call
    /// gives nullptr and later ones what was read, without asking again.
    std::shared_ptr<Properties> properties();
    /// The reading half of properties: takes the properties and values of a
    /// GetProductInformation reply. Raises what properties reports (-10503 for a reply that is
    /// malformed or lacks what it needs).
    void readProperties(const std::string &reply);
    /// The three groups, keyed by id; each property of `properties` is in exactly one. Reading a
    /// group makes a product read its properties. Raises ObjectNotSet (91) when there are none
    /// to group because reading them failed early.
    std::shared_ptr<Properties> CharacteristicProperties();
    std::shared_ptr<Properties> variantProperties();
    std::shared_ptr<Properties> NonCharacteristicProperties();
    /// The values that are not empty, keyed by property id; nullptr for a definition.
    std::shared_ptr<Values> values();

    /// The property of that id, without reading anything: one that is not held, or a product
    /// whose properties were never read, is reported as fatal and gives nullptr.
    std::shared_ptr<ZorvantaProperty> GetProperty(const std::string &id);
    /// The value of that id. Raises InvalidCall (5) when it is not held (an empty value never
    /// is), ObjectNotSet (91) when the values were never read.
    std::shared_ptr<ZorvantaValue> GetValue(const std::string &id);

    /// Reserved: always nothing.
    std::shared_ptr<void> publishedProducts() const { return nullptr; }

private:
    void readProductNode(const XmlNode &node);
    void readDefinitionNode(const XmlNode &node);
    void loadProperties();
    /// Makes the property of `fieldId` from its entry in `propertiesDefinition`.
    std::shared_ptr<ZorvantaProperty> propertyFor(const XmlNode &propertiesDefinition,
                                                  const std::string &fieldId) const;
    void createGroups();
    std::shared_ptr<Properties> group(std::shared_ptr<Properties> ZorvantaProduct::*member);

    std::int32_t m_classDebugId;
    std::string m_id;
    std::string m_name;
    std::string m_description;
    std::string m_productDefinition;
    bool m_isDefinition = false;
    std::shared_ptr<Properties> m_properties;
    std::shared_ptr<Properties> m_characteristic;
    std::shared_ptr<Properties> m_variant;
    std::shared_ptr<Properties> m_nonCharacteristic;
    std::shared_ptr<Values> m_values;
};
