#include "publication/ErpReplyFields.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "platform/xml/XmlNodeList.h"

std::string requiredErpText(const XmlNode &node, const std::string &query, const std::string &api,
                            const std::string &element, const std::string &source)
{
    const XmlNodeList found = node.selectNodes(query);
    if (found.length() == 0)
        raiseError(-10500, api + "no tiene etiqueta " + element + ": " + node.xml(), source);
    const XmlNode text = found.item(0).firstChild();
    if (!text)
        raiseError(-10500, api + "no tiene valor para " + element + ": " + node.xml(), source);
    return text.nodeValue();
}

void addFieldValues(const XmlNode &attributes, const std::string &query,
                    ZorvantaProduct::Properties &properties, ZorvantaProduct::Values &values,
                    const std::string &incomplete, const XmlNode &node, const std::string &source)
{
    for (const XmlNode &field : attributes.selectNodes(query)) {
        const std::optional<std::string> fieldId = field.getAttribute("fieldID");
        if (!field.attributes() || !fieldId)
            raiseError(-10500, incomplete + node.xml(), source);
        // A property the marketplace product no longer has stops the reading here.
        const std::shared_ptr<ZorvantaProperty> property = properties.item(*fieldId);
        auto value = std::make_shared<ZorvantaValue>();
        value->setDefinition(property);
        value->setXml(field);
        values.add(value, property->id());
    }
}
