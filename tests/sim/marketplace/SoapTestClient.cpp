#include "SoapTestClient.h"

#include <httplib.h>
#include <sstream>

namespace {

std::string escaped(const std::string &text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '&':
            out += "&amp;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

} // namespace

int SoapResult::code() const
{
    return root().child("RESULT").child("RETURNCODE").text().as_int();
}

std::string SoapResult::description() const
{
    return root().child("RESULT").child("DESCRIPTION").text().get();
}

std::string SoapTestClient::portOf(const std::string &operation)
{
    if (operation == "GetCategoryContent" || operation == "GetProductDefinition" ||
        operation == "GetProductInformation") {
        return "CatalogInfoSoapPort";
    }
    return "StoreSoapPort";
}

std::string SoapTestClient::envelope(const std::string &operation, const Arguments &arguments)
{
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
        << "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
        << "<SOAP-ENV:Body><m:" << operation << " xmlns:m=\"urn:nubalia:zvtsorvek\">";
    for (const auto &[name, value] : arguments) {
        out << "<" << name << ">" << escaped(value) << "</" << name << ">";
    }
    out << "</m:" << operation << "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
    return out.str();
}

SoapResult SoapTestClient::call(const std::string &operation, const Arguments &arguments) const
{
    return post(portOf(operation), envelope(operation, arguments),
                "\"urn:nubalia:zvtsorvek#" + operation + "\"");
}

SoapResult SoapTestClient::post(const std::string &port, const std::string &body,
                                const std::string &soapAction) const
{
    SoapResult result;
    httplib::Client client(m_baseUrl);
    httplib::Headers headers;
    if (!soapAction.empty()) {
        headers.emplace("SOAPAction", soapAction);
    }
    auto reply =
        client.Post(("/zvtservices/" + port).c_str(), headers, body, "text/xml; charset=utf-8");
    if (!reply) {
        return result;
    }
    result.httpStatus = reply->status;
    result.envelope = reply->body;
    pugi::xml_document envelope;
    if (envelope.load_string(result.envelope.c_str())) {
        result.text = envelope.select_node("//Result").node().text().get();
    }
    result.wellFormed = static_cast<bool>(result.doc->load_buffer(
        result.text.data(), result.text.size(), pugi::parse_default, pugi::encoding_utf8));
    return result;
}

std::string SoapTestClient::get(const std::string &path) const
{
    httplib::Client client(m_baseUrl);
    auto reply = client.Get(path.c_str());
    return reply ? reply->body : std::string();
}
