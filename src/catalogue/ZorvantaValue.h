#pragma once

#include "platform/xml/XmlNode.h"

#include <cstdint>
#include <memory>
#include <string>

class ZorvantaProperty;

/// One value of one property of a marketplace product. The value is held in display form:
/// a decimal number carries the machine's decimal separator while on screen and a point on the
/// wire.
class ZorvantaValue
{
public:
    ZorvantaValue();

    /// The property this is a value of; set it before either direction of `xml`.
    const std::shared_ptr<ZorvantaProperty> &definition() const { return m_definition; }
    void setDefinition(std::shared_ptr<ZorvantaProperty> definition)
    {
        m_definition = std::move(definition);
    }
    const std::string &value() const { return m_value; }
    void setValue(std::string value) { m_value = std::move(value); }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// Takes the value of a `Field` element: its text or CDATA, empty when it has none. For
    /// "Float", "Double" and "Currency" the first "." becomes gDecimalSeparator.
    void setXml(const XmlNode &field);
    /// A new `Field` element (fieldID = the definition's id) holding the value as CDATA, with
    /// the first "," of a "Float", "Double" or "Currency" made ".". The element belongs to a
    /// document of its own until someone appends it elsewhere. Raises ObjectNotSet (91) when
    /// no definition is set.
    XmlNode xml() const;
    /// Reserved: always the empty text.
    std::string xmlString() const { return {}; }

private:
    bool isDecimal() const;

    std::int32_t m_classDebugId;
    std::shared_ptr<ZorvantaProperty> m_definition;
    std::string m_value;
};
