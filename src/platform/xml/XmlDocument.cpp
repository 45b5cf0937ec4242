#include "platform/xml/XmlDocument.h"

#include "platform/core/RaisedError.h"
#include "platform/xml/XmlNodeRef.h"
#include "platform/xml/XmlSyntax.h"
#include "platform/xml/XmlTree.h"

#include <pugixml.hpp>

namespace {

// Comments and processing instructions are kept, as a DOM keeps them; parse_fragment lets
// text or a second element at the top level through so that they can be refused below.
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_declaration |
                                   pugi::parse_comments | pugi::parse_pi | pugi::parse_fragment;

bool hasOneRootAndNoTopText(const pugi::xml_document &document)
{
    int roots = 0;
    for (const pugi::xml_node child : document.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            return false;
        if (child.type() == pugi::node_element)
            ++roots;
    }
    return roots == 1;
}

// A fresh tree holding just one new node of the given kind.
pugi::xml_node newNodeApart(std::shared_ptr<XmlTree> &tree, pugi::xml_node_type type)
{
    tree = std::make_shared<XmlTree>();
    return tree->document().append_child(type);
}

} // namespace

XmlDocument::XmlDocument() : m_tree(std::make_shared<XmlTree>()) {}

bool XmlDocument::loadXML(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    m_tree = std::make_shared<XmlTree>();
    if (!passesStrictMarkupRules(text))
        return false;
    pugi::xml_document &document = m_tree->document();
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), kParseOptions, pugi::encoding_utf8);
    if (!parsed || !hasOneRootAndNoTopText(document)) {
        m_tree = std::make_shared<XmlTree>();
        return false;
    }
    return true;
}

void XmlDocument::setProperty(const std::string &name, const std::string &value)
{
    if (name != "SelectionLanguage" || value != "XPath")
        raiseError(RuntimeErrorNumber::AutomationError,
                   "Propiedad de documento no admitida: " + name + " = " + value);
}

XmlNode XmlDocument::documentElement() const
{
    const pugi::xml_node root = tree().document().document_element();
    return root ? XmlNode(XmlTree::refer(m_tree, root)) : XmlNode();
}

XmlNode XmlDocument::createElement(const std::string &name)
{
    if (!isXmlName(name))
        raiseError(RuntimeErrorNumber::AutomationError, "Nombre de elemento no válido: " + name);
    std::shared_ptr<XmlTree> tree;
    pugi::xml_node element = newNodeApart(tree, pugi::node_element);
    element.set_name(name.c_str());
    return XmlNode(XmlTree::refer(tree, element));
}

XmlNode XmlDocument::createCDATASection(const std::string &data)
{
    std::shared_ptr<XmlTree> tree;
    pugi::xml_node section = newNodeApart(tree, pugi::node_cdata);
    section.set_value(data.c_str());
    return XmlNode(XmlTree::refer(tree, section));
}

XmlNode XmlDocument::appendChild(const XmlNode &child)
{
    return node().appendChild(child);
}

std::string XmlDocument::xml() const
{
    return node().xml();
}

XmlNodeList XmlDocument::selectNodes(const std::string &expression) const
{
    return node().selectNodes(expression);
}

XmlNode XmlDocument::selectSingleNode(const std::string &expression) const
{
    return node().selectSingleNode(expression);
}

XmlTree &XmlDocument::tree() const
{
    if (!m_tree)
        raiseError(RuntimeErrorNumber::ObjectNotSet, "Documento XML movido a otra variable");
    return *m_tree;
}

XmlNode XmlDocument::node() const
{
    return XmlNode(XmlTree::refer(m_tree, tree().document()));
}
