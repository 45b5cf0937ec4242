#pragma once

#include "platform/xml/XmlNode.h"

#include <cstdint>
#include <vector>

/// Nodes as a selection or a child list gave them, in document order, counted from 0. The
/// list is a snapshot: moving its nodes elsewhere afterwards leaves them in it.
class XmlNodeList
{
public:
    XmlNodeList() = default;
    explicit XmlNodeList(std::vector<XmlNode> nodes);

    std::int32_t length() const noexcept;

    /// The node at index; a null handle when index is out of range.
    XmlNode item(std::int32_t index) const;

    std::vector<XmlNode>::const_iterator begin() const noexcept { return m_nodes.begin(); }
    std::vector<XmlNode>::const_iterator end() const noexcept { return m_nodes.end(); }

private:
    std::vector<XmlNode> m_nodes;
};
