#include "marketplace/WsdlDocument.h"

#include "marketplace/ServiceContract.h"

#include <pugixml.hpp>
#include <sstream>

namespace {

constexpr const char *kWsdlNs = "http://schemas.xmlsoap.org/wsdl/";
constexpr const char *kSoapBindingNs = "http://schemas.xmlsoap.org/wsdl/soap/";
constexpr const char *kXsdNs = "http://www.w3.org/2001/XMLSchema";
constexpr const char *kHttpTransport = "http://schemas.xmlsoap.org/soap/http";

std::string str(std::string_view view)
{
    return std::string(view);
}

void addBody(pugi::xml_node parent, const char *name)
{
    pugi::xml_node body = parent.append_child(name).append_child("soap:body");
    body.append_attribute("use") = "literal";
    body.append_attribute("namespace") = str(ServiceContract::kNamespace).c_str();
}

} // namespace

std::string WsdlDocument::text(const std::string &baseUrl)
{
    const std::string tns = str(ServiceContract::kNamespace);
    pugi::xml_document doc;
    pugi::xml_node decl = doc.append_child(pugi::node_declaration);
    decl.append_attribute("version") = "1.0";
    decl.append_attribute("encoding") = "UTF-8";

    pugi::xml_node definitions = doc.append_child("definitions");
    definitions.append_attribute("name") = str(ServiceContract::kServiceName).c_str();
    definitions.append_attribute("targetNamespace") = tns.c_str();
    definitions.append_attribute("xmlns:tns") = tns.c_str();
    definitions.append_attribute("xmlns:soap") = kSoapBindingNs;
    definitions.append_attribute("xmlns:xsd") = kXsdNs;
    definitions.append_attribute("xmlns") = kWsdlNs;

    for (const OperationContract &operation : ServiceContract::operations()) {
        pugi::xml_node input = definitions.append_child("message");
        input.append_attribute("name") = (str(operation.name) + "Request").c_str();
        for (const PartContract &part : operation.parts) {
            pugi::xml_node node = input.append_child("part");
            node.append_attribute("name") = str(part.name).c_str();
            node.append_attribute("type") = str(part.xsdType).c_str();
        }
        pugi::xml_node output = definitions.append_child("message");
        output.append_attribute("name") = (str(operation.name) + "Response").c_str();
        pugi::xml_node part = output.append_child("part");
        part.append_attribute("name") = str(ServiceContract::kResultPart).c_str();
        part.append_attribute("type") = "xsd:string";
    }

    for (std::string_view port : ServiceContract::ports()) {
        pugi::xml_node portType = definitions.append_child("portType");
        portType.append_attribute("name") = (str(port) + "Type").c_str();
        for (const OperationContract &operation : ServiceContract::operations()) {
            if (operation.port != port) {
                continue;
            }
            pugi::xml_node node = portType.append_child("operation");
            node.append_attribute("name") = str(operation.name).c_str();
            node.append_child("input").append_attribute("message") =
                ("tns:" + str(operation.name) + "Request").c_str();
            node.append_child("output").append_attribute("message") =
                ("tns:" + str(operation.name) + "Response").c_str();
        }
    }

    for (std::string_view port : ServiceContract::ports()) {
        pugi::xml_node binding = definitions.append_child("binding");
        binding.append_attribute("name") = (str(port) + "Binding").c_str();
        binding.append_attribute("type") = ("tns:" + str(port) + "Type").c_str();
        pugi::xml_node soapBinding = binding.append_child("soap:binding");
        soapBinding.append_attribute("style") = "rpc";
        soapBinding.append_attribute("transport") = kHttpTransport;
        for (const OperationContract &operation : ServiceContract::operations()) {
            if (operation.port != port) {
                continue;
            }
            pugi::xml_node node = binding.append_child("operation");
            node.append_attribute("name") = str(operation.name).c_str();
            node.append_child("soap:operation").append_attribute("soapAction") =
                (tns + "#" + str(operation.name)).c_str();
            addBody(node, "input");
            addBody(node, "output");
        }
    }

    pugi::xml_node service = definitions.append_child("service");
    service.append_attribute("name") = str(ServiceContract::kServiceName).c_str();
    for (std::string_view port : ServiceContract::ports()) {
        pugi::xml_node node = service.append_child("port");
        node.append_attribute("name") = str(port).c_str();
        node.append_attribute("binding") = ("tns:" + str(port) + "Binding").c_str();
        node.append_child("soap:address").append_attribute("location") =
            (baseUrl + ServiceContract::portPath(port)).c_str();
    }

    std::ostringstream out;
    doc.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
    return out.str();
}
