#pragma once

#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class XmlNode;

/// The definition of one property of a marketplace product, read from a `Property` element of
/// a `PropertiesDefinition`.
class ZorvantaProperty
{
public:
    using Texts = Collection<std::string>;

    ZorvantaProperty();

    const std::string &id() const { return m_id; }
    void setId(std::string id) { m_id = std::move(id); }
    /// The caption shown to the user.
    const std::string &name() const { return m_name; }
    /// As the marketplace sent it: "String", "Integer", "Float", "Enumeration"...
    const std::string &dataType() const { return m_dataType; }
    /// The greatest length or value; empty when the marketplace sets none.
    const std::string &maxValue() const { return m_maxValue; }
    bool required() const { return m_required; }
    bool readOnly() const { return m_readOnly; }
    /// True when the definition carries no `type` attribute, whatever a `type` would say.
    bool characteristic() const { return m_characteristic; }
    void setCharacteristic(bool characteristic) { m_characteristic = characteristic; }
    /// What the product that lists the property last said of it.
    bool isVariant() const { return m_isVariant; }
    void setVariantIndicator(bool variant) { m_isVariant = variant; }
    /// The display names an "Enumeration" admits, in document order; nullptr for other types.
    const std::shared_ptr<Texts> &possibleValues() const { return m_possibleValues; }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// Reads a `Property` element. A missing attribute, or an enumeration with no values, is
    /// reported (-10503) and leaves what was read so far.
    void setXml(const XmlNode &node);

private:
    std::int32_t m_classDebugId;
    std::string m_id;
    std::string m_name;
    std::string m_dataType;
    std::string m_maxValue;
    bool m_required = false;
    bool m_readOnly = false;
    bool m_characteristic = false;
    bool m_isVariant = false;
    std::shared_ptr<Texts> m_possibleValues;
};
