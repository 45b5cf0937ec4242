#include "marketplace/SoapMessage.h"

#include "marketplace/ServiceContract.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <pugixml.hpp>
#include <sstream>

namespace {

std::string_view localName(const char *qualified)
{
    const char *colon = std::strrchr(qualified, ':');
    return colon != nullptr ? std::string_view(colon + 1) : std::string_view(qualified);
}

bool sameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

pugi::xml_node childByLocalName(pugi::xml_node parent, std::string_view name)
{
    for (pugi::xml_node child : parent.children()) {
        if (child.type() == pugi::node_element && localName(child.name()) == name) {
            return child;
        }
    }
    return {};
}

std::string operationOfAction(std::string action)
{
    action.erase(std::remove(action.begin(), action.end(), '"'), action.end());
    const auto cut = action.find_last_of("#/");
    return cut == std::string::npos ? action : action.substr(cut + 1);
}

bool isNil(pugi::xml_node node)
{
    for (pugi::xml_attribute attribute : node.attributes()) {
        if (localName(attribute.name()) == "nil") {
            const std::string_view value = attribute.value();
            return value == "true" || value == "1";
        }
    }
    return false;
}

// rpc/encoded may put a part's value elsewhere in the body and point at it with href="#id".
pugi::xml_node resolveReference(pugi::xml_node part, pugi::xml_node body)
{
    const std::string_view href = part.attribute("href").value();
    if (href.size() < 2 || href.front() != '#') {
        return part;
    }
    const std::string id(href.substr(1));
    pugi::xml_node target = body.find_node([&id](pugi::xml_node node) {
        return node.type() == pugi::node_element && id == node.attribute("id").value();
    });
    return target ? target : part;
}

// A part's value is its text; a client that sent the document unescaped gets it back as text.
std::string valueOf(pugi::xml_node part)
{
    if (isNil(part)) {
        return {};
    }
    std::string text;
    bool hasElements = false;
    for (pugi::xml_node child : part.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
        } else if (child.type() == pugi::node_element) {
            hasElements = true;
        }
    }
    if (hasElements && text.find_first_not_of(" \t\r\n") == std::string::npos) {
        std::ostringstream out;
        for (pugi::xml_node child : part.children()) {
            if (child.type() == pugi::node_element) {
                child.print(out, "", pugi::format_raw);
            }
        }
        return out.str();
    }
    return text;
}

} // namespace

SoapMessage SoapMessage::parse(const std::string &body, const std::string &soapAction)
{
    SoapMessage message;
    const std::string actionOperation = operationOfAction(soapAction);
    message.m_operation = actionOperation;

    pugi::xml_document doc;
    const pugi::xml_parse_result parsed =
        doc.load_buffer(body.data(), body.size(), pugi::parse_default | pugi::parse_ws_pcdata);
    if (!parsed) {
        message.m_problem =
            std::string("El sobre SOAP está mal construido: ") + parsed.description();
        return message;
    }
    pugi::xml_node envelope = doc.document_element();
    if (localName(envelope.name()) != "Envelope") {
        message.m_problem = "La solicitud no es un sobre SOAP";
        return message;
    }
    pugi::xml_node soapBody = childByLocalName(envelope, "Body");
    if (!soapBody) {
        message.m_problem = "El sobre SOAP no tiene cuerpo";
        return message;
    }
    pugi::xml_node first =
        soapBody.find_child([](pugi::xml_node node) { return node.type() == pugi::node_element; });
    if (!first) {
        message.m_problem = "El cuerpo del sobre SOAP está vacío";
        return message;
    }

    const std::string firstName(localName(first.name()));
    pugi::xml_node container;
    if (ServiceContract::find(firstName) != nullptr) {
        message.m_operation = firstName;
        container = first;
    } else if (firstName.size() > 7 && firstName.ends_with("Request") &&
               ServiceContract::find(firstName.substr(0, firstName.size() - 7)) != nullptr) {
        message.m_operation = firstName.substr(0, firstName.size() - 7);
        container = first;
    } else if (ServiceContract::find(actionOperation) != nullptr) {
        // Document style without a wrapper: the parts stand directly in the body.
        container = soapBody;
    } else {
        message.m_operation = firstName;
        message.m_problem = "Operación desconocida: " + firstName;
        return message;
    }

    for (pugi::xml_node part : container.children()) {
        if (part.type() != pugi::node_element) {
            continue;
        }
        message.m_arguments.emplace_back(std::string(localName(part.name())),
                                         valueOf(resolveReference(part, soapBody)));
    }
    return message;
}

std::optional<std::string> SoapMessage::argument(std::string_view partName, size_t position) const
{
    for (const auto &[name, value] : m_arguments) {
        if (sameName(name, partName)) {
            return value;
        }
    }
    if (position < m_arguments.size()) {
        return m_arguments[position].second;
    }
    return std::nullopt;
}

std::string SoapMessage::response(std::string_view operation, const std::string &result)
{
    pugi::xml_document doc;
    pugi::xml_node decl = doc.append_child(pugi::node_declaration);
    decl.append_attribute("version") = "1.0";
    decl.append_attribute("encoding") = "UTF-8";
    pugi::xml_node envelope = doc.append_child("SOAP-ENV:Envelope");
    envelope.append_attribute("xmlns:SOAP-ENV") = "http://schemas.xmlsoap.org/soap/envelope/";
    pugi::xml_node reply =
        envelope.append_child("SOAP-ENV:Body")
            .append_child(("ns:" + std::string(operation) + "Response").c_str());
    reply.append_attribute("xmlns:ns") = std::string(ServiceContract::kNamespace).c_str();
    reply.append_child(std::string(ServiceContract::kResultPart).c_str()).text() = result.c_str();
    std::ostringstream out;
    doc.save(out, "", pugi::format_raw, pugi::encoding_utf8);
    return out.str();
}
