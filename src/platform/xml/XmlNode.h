#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class XmlNodeList;
class XmlNodeRef;

/// A handle on one node of an XML tree: an element, a text or CDATA section, a comment, or a
/// document. Copies are handles on the same node, and compare equal. A handle keeps the node's
/// whole tree alive, so it outlives the XmlDocument it came from; when the node is moved, by
/// appendChild or because its parent's content was replaced, the handle follows it.
///
/// A default-constructed handle is null, as is what a search that found nothing returns. Every
/// member of a null handle but isNull raises RuntimeErrorNumber::ObjectNotSet. A request the
/// DOM refuses (a bad XPath, a child where none may go) raises RuntimeErrorNumber::AutomationError
/// with the reason in the description. Handles on one tree belong to one thread.
class XmlNode
{
public:
    XmlNode() = default;

    bool isNull() const noexcept { return m_ref == nullptr; }
    explicit operator bool() const noexcept { return !isNull(); }
    friend bool operator==(const XmlNode &, const XmlNode &) = default;

    /// The element's name, or "#text", "#cdata-section", "#comment", "#document"; a
    /// processing instruction's target.
    std::string nodeName() const;

    /// The text of a text, CDATA, comment or processing-instruction node. An element or a
    /// document has no value: raises RuntimeErrorNumber::TypeMismatch.
    std::string nodeValue() const;

    /// The text and CDATA content of the node and all its descendants, joined in document order.
    std::string text() const;

    /// Replaces an element's content with one text node (none when text is empty); sets the
    /// value of a text, CDATA or comment node.
    void setText(const std::string &text);

    /// The node serialised: no indentation, attributes in double quotes, an empty element as
    /// "<Name/>", markup characters escaped, CDATA sections as such.
    std::string xml() const;

    /// The first child, or a null handle.
    XmlNode firstChild() const;

    /// The children, in order, as they are now.
    XmlNodeList childNodes() const;

    /// How many attributes an element has (0 included); nothing for a node that cannot carry
    /// any, such as a text node or a document.
    std::optional<std::int32_t> attributes() const;

    /// The attribute's value, possibly empty; nothing when the attribute is absent.
    std::optional<std::string> getAttribute(const std::string &name) const;

    /// Sets the attribute, adding it after the others when it is new. Elements only.
    void setAttribute(const std::string &name, const std::string &value);

    /// Makes child the last child of this node. A child that has a parent already, in this
    /// tree or in another document, is moved: it leaves its old place. Returns the handle on
    /// the child, which now refers to it in its new place.
    XmlNode appendChild(const XmlNode &child);

    /// The nodes the XPath 1.0 expression selects from this node, in document order.
    XmlNodeList selectNodes(const std::string &expression) const;

    /// The first node, in document order, that the expression selects; a null handle when none.
    XmlNode selectSingleNode(const std::string &expression) const;

    /// The element's declared data type ("bin.base64"); nothing when it has none.
    std::optional<std::string> dataType() const;

    /// Declares the element's data type, writing the dt:dt attribute and, unless already in
    /// scope, the declaration of its namespace. Only "bin.base64" is known.
    void setDataType(const std::string &type);

    /// The bytes a "bin.base64" element holds. Raises RuntimeErrorNumber::TypeMismatch for an
    /// element of no such type, AutomationError for content that is not base64.
    std::vector<std::uint8_t> nodeTypedValue() const;

    /// Replaces the content of a "bin.base64" element with bytes in base64, in lines of 76
    /// characters. Raises RuntimeErrorNumber::TypeMismatch for an element of no such type.
    void setNodeTypedValue(const std::vector<std::uint8_t> &bytes);

private:
    friend class XmlDocument;

    explicit XmlNode(std::shared_ptr<XmlNodeRef> ref);

    // The reference behind the handle; raises ObjectNotSet, naming member, when null.
    const XmlNodeRef &ref(const char *member) const;

    std::shared_ptr<XmlNodeRef> m_ref;
};

// Whoever selects or lists nodes needs the list as well.
#include "platform/xml/XmlNodeList.h"
