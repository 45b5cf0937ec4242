#include "platform/xml/XmlNodeRef.h"

#include "platform/xml/XmlTree.h"

XmlNodeRef::XmlNodeRef(std::shared_ptr<XmlTree> tree, pugi::xml_node node)
    : m_tree(std::move(tree)), m_node(node)
{
}

XmlNodeRef::~XmlNodeRef()
{
    m_tree->forget(m_node);
}
