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

int MarketplaceReply::code() const
{
    return root().child("RESULT").child("RETURNCODE").text().as_int();
}

void MarketplaceReply::read(std::string document)
{
    text = std::move(document);
    wellFormed = static_cast<bool>(
        doc->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8));
}

std::vector<std::string> MarketplaceReply::values(const char *xpath) const
{
    std::vector<std::string> found;
    for (pugi::xpath_node node : select(xpath)) {
        found.emplace_back(node.attribute() ? node.attribute().value() : node.node().text().get());
    }
    return found;
}

std::string MarketplaceReply::description() const
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

MarketplaceReply SoapTestClient::call(const std::string &operation,
                                      const Arguments &arguments) const
{
    return post(portOf(operation), envelope(operation, arguments),
                "\"urn:nubalia:zvtsorvek#" + operation + "\"");
}

MarketplaceReply SoapTestClient::post(const std::string &port, const std::string &body,
                                      const std::string &soapAction) const
{
    MarketplaceReply result;
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
    envelope.load_string(result.envelope.c_str());
    result.read(envelope.select_node("//Result").node().text().get());
    return result;
}

std::string SoapTestClient::get(const std::string &path) const
{
    httplib::Client client(m_baseUrl);
    auto reply = client.Get(path.c_str());
    return reply ? reply->body : std::string();
}
