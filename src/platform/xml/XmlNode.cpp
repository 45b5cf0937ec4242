#include "platform/xml/XmlNode.h"

#include "platform/core/RaisedError.h"
#include "platform/xml/Base64.h"
#include "platform/xml/XmlNodeRef.h"
#include "platform/xml/XmlSyntax.h"
#include "platform/xml/XmlTree.h"

#include <pugixml.hpp>

namespace {

constexpr const char *kDatatypesNamespace = "urn:schemas-microsoft-com:datatypes";
constexpr const char *kBase64Type = "bin.base64";
constexpr std::size_t kBase64LineLength = 76;

[[noreturn]] void refuse(const std::string &reason)
{
    raiseError(RuntimeErrorNumber::AutomationError, reason);
}

bool isElement(pugi::xml_node node)
{
    return node.type() == pugi::node_element;
}

bool holdsText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

class StringWriter : public pugi::xml_writer
{
public:
    explicit StringWriter(std::string &out) : m_out(out) {}
    void write(const void *data, size_t size) override
    {
        m_out.append(static_cast<const char *>(data), size);
    }

private:
    std::string &m_out;
};

class TextCollector : public pugi::xml_tree_walker
{
public:
    std::string text;
    bool for_each(pugi::xml_node &node) override
    {
        if (holdsText(node))
            text += node.value();
        return true;
    }
};

pugi::xpath_query compileSelection(const std::string &expression)
{
    try {
        pugi::xpath_query query(expression.c_str());
        if (query.return_type() != pugi::xpath_type_node_set)
            refuse("La expresión XPath no selecciona nodos: " + expression);
        return query;
    } catch (const pugi::xpath_exception &e) {
        refuse(std::string("Expresión XPath no válida (") + e.what() + ", posición " +
               std::to_string(e.result().offset) + "): " + expression);
    }
}

pugi::xml_node selectedNode(const pugi::xpath_node &found, const std::string &expression)
{
    // Attributes are read through getAttribute; no caller takes them as nodes.
    if (found.attribute())
        refuse("La expresión XPath selecciona atributos, no nodos: " + expression);
    return found.node();
}

bool isAncestorOrSelf(pugi::xml_node candidate, pugi::xml_node node)
{
    for (; node; node = node.parent()) {
        if (node == candidate)
            return true;
    }
    return false;
}

// The namespace that prefix stands for at node, from the nearest declaration in scope.
std::optional<std::string> namespaceOf(pugi::xml_node node, std::string_view prefix)
{
    const std::string declaration = "xmlns:" + std::string(prefix);
    for (; isElement(node); node = node.parent()) {
        if (const pugi::xml_attribute bound = node.attribute(declaration.c_str()))
            return bound.value();
    }
    return std::nullopt;
}

void putAttribute(pugi::xml_node element, const std::string &name, const std::string &value)
{
    pugi::xml_attribute attribute = element.attribute(name.c_str());
    if (!attribute)
        attribute = element.append_attribute(name.c_str());
    attribute.set_value(value.c_str());
}

} // namespace

XmlNode::XmlNode(std::shared_ptr<XmlNodeRef> ref) : m_ref(std::move(ref)) {}

const XmlNodeRef &XmlNode::ref(const char *member) const
{
    if (!m_ref)
        raiseError(RuntimeErrorNumber::ObjectNotSet,
                   std::string("Nodo XML no asignado al llamar a ") + member);
    return *m_ref;
}

std::string XmlNode::nodeName() const
{
    const pugi::xml_node node = ref("nodeName").node();
    switch (node.type()) {
    case pugi::node_pcdata:
        return "#text";
    case pugi::node_cdata:
        return "#cdata-section";
    case pugi::node_comment:
        return "#comment";
    case pugi::node_document:
        return "#document";
    default:
        return node.name();
    }
}

std::string XmlNode::nodeValue() const
{
    const pugi::xml_node node = ref("nodeValue").node();
    switch (node.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata:
    case pugi::node_comment:
    case pugi::node_pi:
        return node.value();
    default:
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "El nodo " + nodeName() + " no tiene valor (nodeValue nulo)");
    }
}

std::string XmlNode::text() const
{
    pugi::xml_node node = ref("text").node();
    if (!isElement(node) && node.type() != pugi::node_document)
        return node.value();
    TextCollector collector;
    node.traverse(collector);
    return collector.text;
}

void XmlNode::setText(const std::string &text)
{
    const XmlNodeRef &self = ref("setText");
    pugi::xml_node node = self.node();
    if (holdsText(node) || node.type() == pugi::node_comment) {
        node.set_value(text.c_str());
        return;
    }
    if (!isElement(node))
        refuse("No se puede asignar texto a un nodo " + nodeName());
    while (node.first_child())
        XmlTree::remove(self.tree(), node.first_child());
    if (!text.empty())
        node.append_child(pugi::node_pcdata).set_value(text.c_str());
}

std::string XmlNode::xml() const
{
    std::string out;
    StringWriter writer(out);
    ref("xml").node().print(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return out;
}

XmlNode XmlNode::firstChild() const
{
    const XmlNodeRef &self = ref("firstChild");
    const pugi::xml_node child = self.node().first_child();
    return child ? XmlNode(XmlTree::refer(self.tree(), child)) : XmlNode();
}

XmlNodeList XmlNode::childNodes() const
{
    const XmlNodeRef &self = ref("childNodes");
    std::vector<XmlNode> children;
    for (const pugi::xml_node child : self.node().children())
        children.push_back(XmlNode(XmlTree::refer(self.tree(), child)));
    return XmlNodeList(std::move(children));
}

std::optional<std::int32_t> XmlNode::attributes() const
{
    const pugi::xml_node node = ref("attributes").node();
    if (!isElement(node))
        return std::nullopt;
    const auto all = node.attributes();
    return static_cast<std::int32_t>(std::distance(all.begin(), all.end()));
}

std::optional<std::string> XmlNode::getAttribute(const std::string &name) const
{
    const pugi::xml_attribute attribute = ref("getAttribute").node().attribute(name.c_str());
    if (!attribute)
        return std::nullopt;
    return attribute.value();
}

void XmlNode::setAttribute(const std::string &name, const std::string &value)
{
    const pugi::xml_node node = ref("setAttribute").node();
    if (!isElement(node))
        refuse("Un nodo " + nodeName() + " no tiene atributos");
    if (!isXmlName(name))
        refuse("Nombre de atributo no válido: " + name);
    putAttribute(node, name, value);
}

XmlNode XmlNode::appendChild(const XmlNode &child)
{
    const XmlNodeRef &self = ref("appendChild");
    const XmlNodeRef &moved = child.ref("appendChild");
    const pugi::xml_node parent = self.node();
    const pugi::xml_node node = moved.node();
    if (!isElement(parent) && parent.type() != pugi::node_document)
        refuse("Un nodo " + nodeName() + " no admite hijos");
    if (node.type() == pugi::node_document)
        refuse("Un documento no puede ser hijo de otro nodo");
    if (parent.type() == pugi::node_document) {
        if (holdsText(node))
            refuse("El documento no admite texto fuera del elemento raíz");
        const pugi::xml_node root = parent.find_child(isElement);
        if (isElement(node) && root && root != node)
            refuse("El documento ya tiene el elemento raíz " + std::string(root.name()));
    }
    if (self.tree() == moved.tree() && isAncestorOrSelf(node, parent))
        refuse("Un nodo no puede ser hijo de sí mismo ni de sus descendientes");
    if (!XmlTree::move(moved.tree(), node, self.tree(), parent))
        refuse("No se puede agregar un nodo " + child.nodeName() + " a " + nodeName());
    return child;
}

XmlNodeList XmlNode::selectNodes(const std::string &expression) const
{
    const XmlNodeRef &self = ref("selectNodes");
    const pugi::xpath_query query = compileSelection(expression);
    pugi::xpath_node_set found = query.evaluate_node_set(self.node());
    found.sort();
    std::vector<XmlNode> nodes;
    nodes.reserve(found.size());
    for (const pugi::xpath_node &each : found)
        nodes.push_back(XmlNode(XmlTree::refer(self.tree(), selectedNode(each, expression))));
    return XmlNodeList(std::move(nodes));
}

XmlNode XmlNode::selectSingleNode(const std::string &expression) const
{
    const XmlNodeRef &self = ref("selectSingleNode");
    const pugi::xpath_query query = compileSelection(expression);
    const pugi::xpath_node first = query.evaluate_node(self.node());
    if (!first)
        return {};
    return XmlNode(XmlTree::refer(self.tree(), selectedNode(first, expression)));
}

std::optional<std::string> XmlNode::dataType() const
{
    const pugi::xml_node node = ref("dataType").node();
    for (const pugi::xml_attribute attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        const std::size_t colon = name.find(':');
        if (colon == std::string_view::npos || name.substr(colon + 1) != "dt")
            continue;
        const std::string_view prefix = name.substr(0, colon);
        if (prefix != "xmlns" && namespaceOf(node, prefix) == kDatatypesNamespace)
            return attribute.value();
    }
    return std::nullopt;
}

void XmlNode::setDataType(const std::string &type)
{
    const pugi::xml_node node = ref("setDataType").node();
    if (!isElement(node))
        refuse("Un nodo " + nodeName() + " no admite tipo de dato");
    if (type != kBase64Type)
        refuse("Tipo de dato no admitido: " + type);
    const std::optional<std::string> bound = namespaceOf(node, "dt");
    if (!bound)
        putAttribute(node, "xmlns:dt", kDatatypesNamespace);
    else if (*bound != kDatatypesNamespace)
        refuse("El prefijo dt ya designa el espacio de nombres " + *bound);
    putAttribute(node, "dt:dt", type);
}

std::vector<std::uint8_t> XmlNode::nodeTypedValue() const
{
    if (dataType() != kBase64Type)
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "El nodo " + nodeName() + " no es de tipo " + kBase64Type);
    std::optional<std::vector<std::uint8_t>> bytes = decodeBase64(text());
    if (!bytes)
        refuse("El contenido de " + nodeName() + " no es base64 válido");
    return std::move(*bytes);
}

void XmlNode::setNodeTypedValue(const std::vector<std::uint8_t> &bytes)
{
    if (dataType() != kBase64Type)
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "El nodo " + nodeName() + " no es de tipo " + kBase64Type);
    setText(encodeBase64(bytes, kBase64LineLength));
}
