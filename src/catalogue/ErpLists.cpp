#include "catalogue/ErpLists.h"

#include "catalogue/ProductLine.h"
#include "platform/xml/XmlNodeList.h"
#include "stores/ZorvantaMinistore.h"

std::int32_t erpDirection(bool forward)
{
    return forward ? 0 : 1;
}

ConnectorBuffer connectorText(const std::string &text)
{
    ConnectorBuffer buffer(text.size());
    buffer.assign(text);
    return buffer;
}

std::string storeIdOf(const std::shared_ptr<ZorvantaMinistore> &ministore)
{
    return ministore ? ministore->id() : std::string();
}

bool endsList(std::int32_t code, std::int32_t direction)
{
    return code == 103 || (code == 102 && direction == 0) || (code == 101 && direction == 1);
}

void addLines(Collection<std::shared_ptr<ProductLine>> &lines, const XmlNodeList &nodes,
              std::int16_t productType, const std::shared_ptr<ZorvantaMinistore> &ministore)
{
    for (const XmlNode &node : nodes) {
        if (auto line = ProductLine::make(productType, node, ministore))
            lines.add(std::move(line));
    }
}
