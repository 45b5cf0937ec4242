#include "SoapTestClient.h"

#include <httplib.h>

namespace {

std::string portOf(const std::string &operation)
{
    const bool info = operation == "GetCategoryContent" || operation.starts_with("GetProduct");
    return info ? "CatalogInfoSoapPort" : "StoreSoapPort";
}

pugi::xml_node result(const MarketplaceReply &reply)
{
    return reply.doc->document_element().child("RESULT");
}

} // namespace

void MarketplaceReply::read(std::string document)
{
    text = std::move(document);
    wellFormed = static_cast<bool>(
        doc->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8));
}

int MarketplaceReply::code() const
{
    return result(*this).child("RETURNCODE").text().as_int();
}

std::string MarketplaceReply::description() const
{
    return result(*this).child("DESCRIPTION").text().get();
}

std::vector<std::string> MarketplaceReply::values(const char *xpath) const
{
    std::vector<std::string> found;
    pugi::xpath_node_set nodes = doc->select_nodes(xpath);
    nodes.sort();
    for (pugi::xpath_node node : nodes) {
        found.emplace_back(node.attribute() ? node.attribute().value() : node.node().text().get());
    }
    return found;
}

std::string SoapTestClient::envelope(const std::string &operation, const Arguments &arguments)
{
    std::string body = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                       "<SOAP-ENV:Envelope "
                       "xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                       "<SOAP-ENV:Body><m:" +
                       operation + " xmlns:m=\"urn:nubalia:zvtsorvek\">";
    for (const auto &[name, value] : arguments) {
        body += "<" + name + "><![CDATA[" + value + "]]></" + name + ">";
    }
    return body + "</m:" + operation + "></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

MarketplaceReply SoapTestClient::call(const std::string &operation,
                                      const Arguments &arguments) const
{
    return post(portOf(operation), envelope(operation, arguments));
}

MarketplaceReply SoapTestClient::post(const std::string &port, const std::string &body) const
{
    MarketplaceReply reply;
    auto answered = httplib::Client(m_baseUrl).Post(("/zvtservices/" + port).c_str(), body,
                                                    "text/xml; charset=utf-8");
    if (!answered) {
        return reply;
    }
    reply.httpStatus = answered->status;
    pugi::xml_document envelope;
    envelope.load_string(answered->body.c_str());
    reply.read(envelope.select_node("//Result").node().text().get());
    return reply;
}

std::string SoapTestClient::get(const std::string &path) const
{
    auto reply = httplib::Client(m_baseUrl).Get(path.c_str());
    return reply ? reply->body : std::string();
}
