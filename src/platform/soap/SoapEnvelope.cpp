#include "platform/soap/SoapEnvelope.h"

#include "platform/core/RaisedError.h"

#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <string_view>

namespace {

constexpr const char *kEnvelopeNamespace = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr const char *kInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";

// Gives each namespace the request uses a prefix, declared once on the envelope.
class Prefixes
{
public:
    explicit Prefixes(pugi::xml_node scope) : m_scope(scope) {}

    std::string qualified(const QualifiedName &name)
    {
        if (name.uri.empty())
            return name.local;
        const auto [entry, added] =
            m_prefixes.try_emplace(name.uri, name.uri == kXmlSchemaNamespace
                                                 ? "xsd"
                                                 : "ns" + std::to_string(m_prefixes.size() + 1));
        if (added)
            m_scope.append_attribute(("xmlns:" + entry->second).c_str()) = name.uri.c_str();
        return entry->second + ":" + name.local;
    }

private:
    pugi::xml_node m_scope;
    std::map<std::string, std::string> m_prefixes;
};

std::string_view localName(pugi::xml_node node)
{
    const std::string_view name = node.name();
    const auto colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

// Replies are matched on local names: servers differ in the prefixes they choose and in
// whether they qualify the return element, and any of those forms is a good answer.
pugi::xml_node firstElement(pugi::xml_node parent, std::string_view local = {})
{
    for (const auto node : parent.children()) {
        if (node.type() == pugi::node_element && (local.empty() || localName(node) == local))
            return node;
    }
    return {};
}

std::string textOf(pugi::xml_node element)
{
    std::string text;
    for (const auto node : element.children()) {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            text += node.value();
    }
    return text;
}

[[noreturn]] void raiseReplyError(const SoapOperation &operation, const std::string &problem,
                                  const std::string &reply)
{
    raiseError(RuntimeErrorNumber::AutomationError,
               "The reply to " + operation.name + " " + problem + ": " +
                   reply.substr(0, SoapEnvelope::kQuotedReplyLength));
}

} // namespace

std::string SoapEnvelope::request(const SoapOperation &operation,
                                  const std::vector<std::string> &values)
{
    pugi::xml_document document;
    auto declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "utf-8";
    auto envelope = document.append_child("soap:Envelope");
    envelope.append_attribute("xmlns:soap") = kEnvelopeNamespace;
    const bool encoded = !operation.encodingStyle.empty();
    if (encoded) {
        envelope.append_attribute("xmlns:xsi") = kInstanceNamespace;
        envelope.append_attribute("soap:encodingStyle") = operation.encodingStyle.c_str();
    }
    Prefixes prefixes(envelope);
    auto parent = envelope.append_child("soap:Body");
    if (operation.requestWrapper)
        parent = parent.append_child(prefixes.qualified(*operation.requestWrapper).c_str());
    for (std::size_t i = 0; i < operation.parameters.size() && i < values.size(); ++i) {
        const auto &parameter = operation.parameters[i];
        auto element = parent.append_child(prefixes.qualified(parameter.element).c_str());
        if (encoded && !parameter.type.local.empty())
            element.append_attribute("xsi:type") = prefixes.qualified(parameter.type).c_str();
        element.text().set(values[i].c_str());
    }
    std::ostringstream text;
    document.save(text, "", pugi::format_raw);
    return text.str();
}

std::string SoapEnvelope::returnValue(const SoapOperation &operation, const std::string &reply,
                                      bool faultExpected)
{
    pugi::xml_document document;
    const auto parsed = document.load_buffer(reply.data(), reply.size());
    const auto root = document.document_element();
    const auto body = firstElement(root, "Body");
    if (!parsed || localName(root) != "Envelope" || !body) {
        raiseReplyError(operation,
                        faultExpected ? "is HTTP status 500 with no SOAP envelope"
                                      : "is not a SOAP envelope",
                        reply);
    }
    const auto content = firstElement(body);
    if (localName(content) == "Fault") {
        raiseError(RuntimeErrorNumber::AutomationError,
                   "The service answered " + operation.name +
                       " with a SOAP fault: " + textOf(firstElement(content, "faultcode")) + ": " +
                       textOf(firstElement(content, "faultstring")));
    }
    if (faultExpected)
        raiseReplyError(operation, "is HTTP status 500 with no SOAP fault", reply);
    return textOf(operation.replyWrapped ? firstElement(content) : content);
}
