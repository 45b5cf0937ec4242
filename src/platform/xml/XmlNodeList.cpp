#include "platform/xml/XmlNodeList.h"

XmlNodeList::XmlNodeList(std::vector<XmlNode> nodes) : m_nodes(std::move(nodes)) {}

std::int32_t XmlNodeList::length() const noexcept
{
    return static_cast<std::int32_t>(m_nodes.size());
}

XmlNode XmlNodeList::item(std::int32_t index) const
{
    if (index < 0 || index >= length())
        return {};
    return m_nodes[static_cast<std::size_t>(index)];
}
