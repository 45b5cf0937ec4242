#include "platform/soap/WsdlReader.h"

#include "platform/core/RaisedError.h"

#include <string_view>
#include <vector>

namespace {

constexpr const char *kWsdl = "http://schemas.xmlsoap.org/wsdl/";
constexpr const char *kSoapBinding = "http://schemas.xmlsoap.org/wsdl/soap/";
constexpr const char *kSoapEncoding = "http://schemas.xmlsoap.org/soap/encoding/";

std::string namespaceOfPrefix(pugi::xml_node scope, std::string_view prefix)
{
    const std::string declaration = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
    for (; scope; scope = scope.parent()) {
        if (const auto attribute = scope.attribute(declaration.c_str()))
            return attribute.value();
    }
    return {};
}

// Element names and the QName values of attributes (type="xsd:short") alike, resolved in
// the scope of `scope`; an unprefixed name takes the default namespace.
QualifiedName resolve(pugi::xml_node scope, std::string_view name)
{
    const auto colon = name.find(':');
    if (colon == std::string_view::npos)
        return {namespaceOfPrefix(scope, {}), std::string(name)};
    return {namespaceOfPrefix(scope, name.substr(0, colon)), std::string(name.substr(colon + 1))};
}

bool isElement(pugi::xml_node node, const char *uri, std::string_view local)
{
    if (node.type() != pugi::node_element)
        return false;
    const auto name = resolve(node, node.name());
    return name.local == local && name.uri == uri;
}

bool isSchema(pugi::xml_node node, std::string_view local)
{
    if (node.type() != pugi::node_element)
        return false;
    const auto name = resolve(node, node.name());
    return name.local == local && isBuiltInTypeNamespace(name.uri);
}

std::vector<pugi::xml_node> children(pugi::xml_node parent, const char *uri,
                                     std::string_view local)
{
    std::vector<pugi::xml_node> found;
    for (const auto node : parent.children()) {
        if (isElement(node, uri, local))
            found.push_back(node);
    }
    return found;
}

pugi::xml_node child(pugi::xml_node parent, const char *uri, std::string_view local)
{
    const auto found = children(parent, uri, local);
    return found.empty() ? pugi::xml_node() : found.front();
}

pugi::xml_node named(pugi::xml_node parent, const char *uri, std::string_view local,
                     std::string_view name)
{
    for (const auto node : children(parent, uri, local)) {
        if (name == node.attribute("name").value())
            return node;
    }
    return {};
}

pugi::xml_node schemaChild(pugi::xml_node parent, std::string_view local)
{
    for (const auto node : parent.children()) {
        if (isSchema(node, local))
            return node;
    }
    return {};
}

pugi::xml_node enclosingSchema(pugi::xml_node node)
{
    while (node && !isSchema(node, "schema"))
        node = node.parent();
    return node;
}

} // namespace

WsdlReader::WsdlReader(const std::string &text, std::string origin) : m_origin(std::move(origin))
{
    const auto parsed = m_document.load_buffer(text.data(), text.size());
    if (!parsed) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   "The service description at " + m_origin + " does not parse: " +
                       parsed.description() + " at offset " + std::to_string(parsed.offset));
    }
    m_definitions = m_document.document_element();
    if (!isElement(m_definitions, kWsdl, "definitions"))
        fail("it is not a WSDL 1.1 document");
}

SoapPort WsdlReader::port(const std::string &serviceName, const std::string &portName) const
{
    const auto service = named(m_definitions, kWsdl, "service", serviceName);
    if (!service)
        fail("it has no service " + serviceName);
    const auto port = named(service, kWsdl, "port", portName);
    if (!port)
        fail("the service " + serviceName + " has no port " + portName);
    SoapPort result;
    result.address = child(port, kSoapBinding, "address").attribute("location").value();
    if (result.address.empty())
        fail("the port " + portName + " has no SOAP 1.1 address");

    const auto binding = definition("binding", port, "binding");
    const auto portType = definition("portType", binding, "type");
    const std::string style =
        child(binding, kSoapBinding, "binding").attribute("style").as_string("document");
    for (const auto bound : children(binding, kWsdl, "operation")) {
        auto operation = this->operation(bound, portType, style);
        result.operations.emplace(operation.name, std::move(operation));
    }
    return result;
}

SoapOperation WsdlReader::operation(pugi::xml_node bound, pugi::xml_node portType,
                                    const std::string &bindingStyle) const
{
    SoapOperation result;
    result.name = bound.attribute("name").value();
    const auto soapOperation = child(bound, kSoapBinding, "operation");
    result.soapAction = soapOperation.attribute("soapAction").value();
    const std::string style = soapOperation.attribute("style").as_string(bindingStyle.c_str());
    const auto inputBody = child(child(bound, kWsdl, "input"), kSoapBinding, "body");
    if (std::string_view(inputBody.attribute("use").value()) == "encoded")
        result.encodingStyle = inputBody.attribute("encodingStyle").as_string(kSoapEncoding);

    const auto abstract = named(portType, kWsdl, "operation", result.name);
    if (!abstract)
        fail("its port type has no operation " + result.name);
    const auto inputMessage = definition("message", child(abstract, kWsdl, "input"), "message");
    // A one-way operation has no output; its reply is then read as an empty message.
    const auto output = child(abstract, kWsdl, "output");
    const auto outputMessage = output ? definition("message", output, "message") : output;
    if (style != "rpc") {
        readDocumentParts(inputMessage, outputMessage, result);
        return result;
    }
    // rpc: an element named after the operation holds one accessor per part, unqualified.
    result.requestWrapper =
        QualifiedName{inputBody.attribute("namespace")
                          .as_string(m_definitions.attribute("targetNamespace").value()),
                      result.name};
    for (const auto part : children(inputMessage, kWsdl, "part"))
        result.parameters.push_back({{{}, part.attribute("name").value()}, typeOf(part)});
    return result;
}

void WsdlReader::readDocumentParts(pugi::xml_node inputMessage, pugi::xml_node outputMessage,
                                   SoapOperation &operation) const
{
    const auto inputParts = children(inputMessage, kWsdl, "part");
    operation.replyWrapped = wrapperType(outputMessage) != pugi::xml_node();
    if (const auto wrapper = wrapperType(inputMessage)) {
        const auto &part = inputParts.front();
        operation.requestWrapper = resolve(part, part.attribute("element").value());
        auto particles = schemaChild(wrapper, "sequence");
        if (!particles)
            particles = schemaChild(wrapper, "all");
        for (const auto particle : particles.children()) {
            if (isSchema(particle, "element"))
                operation.parameters.push_back(childParameter(particle));
        }
        return;
    }
    for (const auto &part : inputParts) {
        const auto element = part.attribute("element");
        operation.parameters.push_back({element
                                            ? resolve(part, element.value())
                                            : QualifiedName{{}, part.attribute("name").value()},
                                        typeOf(part)});
    }
}

pugi::xml_node WsdlReader::wrapperType(pugi::xml_node message) const
{
    const auto parts = children(message, kWsdl, "part");
    if (parts.size() != 1 || !parts.front().attribute("element"))
        return {};
    const auto &part = parts.front();
    return complexTypeOf(schemaElement(resolve(part, part.attribute("element").value())));
}

SoapParameter WsdlReader::childParameter(pugi::xml_node declaration) const
{
    if (const auto reference = declaration.attribute("ref")) {
        const auto name = resolve(declaration, reference.value());
        return {name, typeOf(schemaElement(name))};
    }
    const auto schema = enclosingSchema(declaration);
    const auto form = declaration.attribute("form");
    const std::string_view qualification =
        form ? form.value() : schema.attribute("elementFormDefault").value();
    return {{qualification == "qualified" ? schema.attribute("targetNamespace").value() : "",
             declaration.attribute("name").value()},
            typeOf(declaration)};
}

pugi::xml_node WsdlReader::definition(const char *kind, pugi::xml_node referrer,
                                      const char *attribute) const
{
    const auto name = resolve(referrer, referrer.attribute(attribute).value());
    const auto found = named(m_definitions, kWsdl, kind, name.local);
    if (!found)
        fail(std::string("it has no ") + kind + " " + name.local);
    return found;
}

pugi::xml_node WsdlReader::schemaDeclaration(std::string_view kind,
                                             const QualifiedName &name) const
{
    for (const auto schema : child(m_definitions, kWsdl, "types").children()) {
        if (!isSchema(schema, "schema") || name.uri != schema.attribute("targetNamespace").value())
            continue;
        for (const auto declaration : schema.children()) {
            if (isSchema(declaration, kind) && name.local == declaration.attribute("name").value())
                return declaration;
        }
    }
    return {};
}

pugi::xml_node WsdlReader::schemaElement(const QualifiedName &name) const
{
    const auto element = schemaDeclaration("element", name);
    if (!element)
        fail("its schema has no element {" + name.uri + "}" + name.local);
    return element;
}

pugi::xml_node WsdlReader::complexTypeOf(pugi::xml_node element) const
{
    if (const auto anonymous = schemaChild(element, "complexType"))
        return anonymous;
    const auto type = element.attribute("type");
    return type ? schemaDeclaration("complexType", resolve(element, type.value()))
                : pugi::xml_node();
}

QualifiedName WsdlReader::typeOf(pugi::xml_node declaration) const
{
    if (const auto type = declaration.attribute("type"))
        return resolve(declaration, type.value());
    if (const auto element = declaration.attribute("element"))
        return typeOf(schemaElement(resolve(declaration, element.value())));
    // An inline simple type counts as its base type: its facets are the service's to check.
    const auto restriction = schemaChild(schemaChild(declaration, "simpleType"), "restriction");
    return restriction ? resolve(restriction, restriction.attribute("base").value())
                       : QualifiedName{};
}

void WsdlReader::fail(const std::string &problem) const
{
    raiseError(RuntimeErrorNumber::AutomationError,
               "The service description at " + m_origin + " is not usable: " + problem);
}
