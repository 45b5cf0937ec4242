#pragma once

#include <memory>
#include <pugixml.hpp>

class XmlTree;

/// The one reference to a node that every XmlNode handle on it shares. When the node moves to
/// another tree, the reference is pointed at it there, so no handle is left dangling.
class XmlNodeRef : public std::enable_shared_from_this<XmlNodeRef>
{
public:
    XmlNodeRef(std::shared_ptr<XmlTree> tree, pugi::xml_node node);
    ~XmlNodeRef();
    XmlNodeRef(const XmlNodeRef &) = delete;
    XmlNodeRef &operator=(const XmlNodeRef &) = delete;

    const std::shared_ptr<XmlTree> &tree() const noexcept { return m_tree; }
    pugi::xml_node node() const noexcept { return m_node; }

private:
    friend class XmlTree;

    std::shared_ptr<XmlTree> m_tree;
    pugi::xml_node m_node;
};
