#pragma once

#include "platform/soap/SoapPort.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>

/// Reads a WSDL 1.1 document (one file, its schema inline) into what the client needs for
/// one port: the address of its SOAP 1.1 binding and, for every operation, the soapAction,
/// the style and use, and the request's parameters in order. Handles rpc style with literal
/// or encoded use and document/literal, bare or in the wrapped form.
class WsdlReader
{
public:
    /// Parses `text`; `origin` names the document in error descriptions. Raises AutomationError
    /// with the parser's message when the text is not a WSDL 1.1 document.
    WsdlReader(const std::string &text, std::string origin);

    /// The port `portName` of the service `serviceName`. Raises AutomationError naming what is
    /// missing when the service, the port, its SOAP address, or anything its operations refer
    /// to (binding, port type, message, schema element) is not in the document.
    SoapPort port(const std::string &serviceName, const std::string &portName) const;

private:
    SoapOperation operation(pugi::xml_node bound, pugi::xml_node portType,
                            const std::string &bindingStyle) const;
    void readDocumentParts(pugi::xml_node inputMessage, pugi::xml_node outputMessage,
                           SoapOperation &operation) const;
    /// The complex type of the one element part of `message`, if it has that wrapped form.
    pugi::xml_node wrapperType(pugi::xml_node message) const;
    SoapParameter childParameter(pugi::xml_node declaration) const;
    pugi::xml_node definition(const char *kind, pugi::xml_node referrer,
                              const char *attribute) const;
    pugi::xml_node schemaDeclaration(std::string_view kind, const QualifiedName &name) const;
    pugi::xml_node schemaElement(const QualifiedName &name) const;
    pugi::xml_node complexTypeOf(pugi::xml_node element) const;
    QualifiedName typeOf(pugi::xml_node declaration) const;
    [[noreturn]] void fail(const std::string &problem) const;

    pugi::xml_document m_document;
    pugi::xml_node m_definitions;
    std::string m_origin;
};
