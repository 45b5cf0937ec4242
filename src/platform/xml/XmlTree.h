#pragma once

#include <memory>
#include <pugixml.hpp>
#include <unordered_map>

class XmlNodeRef;

/// One parsed or built tree and the handles that point into it. An XmlDocument owns one; a
/// node made apart from any document (createElement, a node taken out while handles hold it)
/// gets one of its own, so that an XPath run from it sees its own subtree and nothing else.
class XmlTree
{
public:
    XmlTree() = default;
    XmlTree(const XmlTree &) = delete;
    XmlTree &operator=(const XmlTree &) = delete;

    pugi::xml_document &document() noexcept { return m_document; }

    /// The reference that all handles on node share; node belongs to tree.
    static std::shared_ptr<XmlNodeRef> refer(const std::shared_ptr<XmlTree> &tree,
                                             pugi::xml_node node);

    /// Makes node, with its subtree, the last child of parent, which may lie in another tree.
    /// Handles on the moved nodes follow them. Returns the node in its new place, or a null
    /// node when parent cannot hold it.
    static pugi::xml_node move(std::shared_ptr<XmlTree> from, pugi::xml_node node,
                               std::shared_ptr<XmlTree> to, pugi::xml_node parent);

    /// Takes node out of tree. Whatever handles still hold of it stays alive in a tree of its
    /// own.
    static void remove(const std::shared_ptr<XmlTree> &tree, pugi::xml_node node);

private:
    friend class XmlNodeRef;

    void forget(pugi::xml_node node) noexcept;
    bool holdsHandleWithin(pugi::xml_node node) const;

    pugi::xml_document m_document;
    std::unordered_map<pugi::xml_node_struct *, XmlNodeRef *> m_handles;
};
