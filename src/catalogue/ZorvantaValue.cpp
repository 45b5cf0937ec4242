#include "catalogue/ZorvantaValue.h"

#include "catalogue/ZorvantaProperty.h"
#include "platform/core/RaisedError.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ClassDebugId.h"
#include "shell/Constants.h"

namespace {

// Only the first separator changes: "1.234.5" is left for the person to see and correct.
std::string replaceFirst(std::string text, char from, const std::string &to)
{
    const std::size_t at = text.find(from);
    if (at != std::string::npos)
        text.replace(at, 1, to);
    return text;
}

} // namespace

ZorvantaValue::ZorvantaValue() : m_classDebugId(GetNextClassDebugID()) {}

bool ZorvantaValue::isDecimal() const
{
    if (!m_definition)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    const std::string &type = m_definition->dataType();
    return type == "Float" || type == "Double" || type == "Currency";
}

void ZorvantaValue::setXml(const XmlNode &field)
{
    const XmlNode first = field.firstChild();
    const std::string text = first ? first.nodeValue() : std::string();
    m_value = isDecimal() ? replaceFirst(text, '.', gDecimalSeparator) : text;
}

XmlNode ZorvantaValue::xml() const
{
    // Whatever the machine's separator, a comma typed by the person goes out as a point.
    const std::string text = isDecimal() ? replaceFirst(m_value, ',', ".") : m_value;
    XmlDocument document;
    XmlNode field = document.createElement("Field");
    field.setAttribute("fieldID", m_definition->id());
    field.appendChild(document.createCDATASection(text));
    return field;
}
