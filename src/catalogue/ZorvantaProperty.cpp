#include "catalogue/ZorvantaProperty.h"

#include "platform/xml/XmlNode.h"
#include "shell/ClassDebugId.h"
#include "shell/ErrorHandling.h"

namespace {

constexpr const char *kSource = "ZorvantaProperty:Let xml";

[[noreturn]] void fail(const std::string &text)
{
    raiseError(-10503, text, kSource);
}

std::string requiredAttribute(const XmlNode &node, const std::string &name)
{
    const std::optional<std::string> value = node.getAttribute(name);
    if (!value)
        fail("El XML no tiene el atributo " + name + " para la propiedad: " + node.xml());
    return *value;
}

} // namespace

ZorvantaProperty::ZorvantaProperty() : m_classDebugId(GetNextClassDebugID()) {}

void ZorvantaProperty::setXml(const XmlNode &node)
{
    withHandler("ZorvantaProperty:xml Property Set", [&] {
        if (!node.attributes())
            fail("El xml pasado como parámetro no tiene atributos para la propiedad: " +
                 node.xml());
        m_id = requiredAttribute(node, "id");
        m_name = requiredAttribute(node, "name");
        m_dataType = requiredAttribute(node, "dataType");
        m_maxValue = node.getAttribute("MaxValue").value_or("");
        m_required = requiredAttribute(node, "required") == "yes";
        m_readOnly = requiredAttribute(node, "readOnly") == "yes";
        m_characteristic = !node.getAttribute("type");

        // Only this exact spelling is an enumeration.
        if (m_dataType != "Enumeration")
            return;
        m_possibleValues = std::make_shared<Texts>();
        const XmlNodeList values = node.selectNodes("descendant-or-self::PropertyValues");
        if (values.length() == 0) {
            m_possibleValues.reset();
            fail("No existen valores para la enumeración " + m_id);
        }
        for (const XmlNode &value : values) {
            if (!value.attributes())
                fail("El xml pasado como parámetro no tiene atributos para un valor de la "
                     "enumeración: " +
                     node.xml());
            const std::optional<std::string> displayName = value.getAttribute("displayName");
            if (!displayName)
                fail("El XML no tiene el atributo displayName para un valor de la enumeración " +
                     node.xml());
            m_possibleValues->add(*displayName);
        }
    });
}
