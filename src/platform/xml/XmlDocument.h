#pragma once

#include "platform/xml/XmlNode.h"
#include "platform/xml/XmlNodeList.h"

#include <memory>
#include <string>
#include <string_view>

class XmlTree;

/// An XML document: parsed from a reply, or built element by element for a request. Nodes
/// taken from it are XmlNode handles that keep their tree alive after the document is gone.
/// A document moves but does not copy; a moved-from document may only be loaded or assigned.
class XmlDocument
{
public:
    /// An empty document, with no document element.
    XmlDocument();

    /// Replaces the content with the document in text, read up to its first NUL character.
    /// Text between elements that is only blanks is not kept. Returns false, and leaves the
    /// document empty, when the text is not exactly one well-formed document; never throws.
    bool loadXML(std::string_view text);

    /// Accepts "SelectionLanguage" set to "XPath", which changes nothing: every selection is
    /// XPath already. Anything else raises RuntimeErrorNumber::AutomationError.
    void setProperty(const std::string &name, const std::string &value);

    /// The root element; a null handle for an empty document.
    XmlNode documentElement() const;

    /// A new element that belongs to no tree until it is appended somewhere. An invalid name
    /// raises RuntimeErrorNumber::AutomationError.
    XmlNode createElement(const std::string &name);

    /// A new CDATA section holding data as it stands, belonging to no tree until appended.
    XmlNode createCDATASection(const std::string &data);

    /// Appends child at the document level, moving it from wherever it was; an element there
    /// becomes the root. A second root, or text, raises RuntimeErrorNumber::AutomationError.
    XmlNode appendChild(const XmlNode &child);

    /// The document serialised as XmlNode::xml does, with the XML declaration only when the
    /// loaded text had one.
    std::string xml() const;

    /// XPath 1.0 from the document node; see XmlNode.
    XmlNodeList selectNodes(const std::string &expression) const;
    XmlNode selectSingleNode(const std::string &expression) const;

private:
    // The tree, or ObjectNotSet for a moved-from document.
    XmlTree &tree() const;
    XmlNode node() const;

    std::shared_ptr<XmlTree> m_tree;
};
