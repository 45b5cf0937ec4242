#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

/// A document the marketplace answered, as text and as XML. For a SOAP call also the HTTP
/// status (0 when the connection failed) and the whole envelope.
struct MarketplaceReply
{
    int httpStatus = 0;
    std::string envelope;
    std::string text;
    std::shared_ptr<pugi::xml_document> doc = std::make_shared<pugi::xml_document>();
    bool wellFormed = false;

    /// Takes the text and reads it as a document.
    void read(std::string document);
    pugi::xml_node root() const { return doc->document_element(); }
    /// RETURNCODE of the document's RESULT; 0 when there is no RESULT.
    int code() const;
    std::string description() const;
    pugi::xpath_node_set select(const char *xpath) const { return doc->select_nodes(xpath); }
    /// The texts of the elements, or the values of the attributes, an XPath selects.
    std::vector<std::string> values(const char *xpath) const;
};

/// SOAP 1.1 requests written by hand, as a client of the marketplace would send them.
class SoapTestClient
{
public:
    using Arguments = std::vector<std::pair<std::string, std::string>>;

    explicit SoapTestClient(std::string baseUrl) : m_baseUrl(std::move(baseUrl)) {}

    /// An rpc/literal call of the operation on its own port, with named arguments in order.
    MarketplaceReply call(const std::string &operation, const Arguments &arguments) const;
    /// Posts any body to a port's endpoint with the given SOAPAction header.
    MarketplaceReply post(const std::string &port, const std::string &body,
                          const std::string &soapAction = {}) const;
    /// GET of a path; the body, empty on failure.
    std::string get(const std::string &path) const;

    /// The rpc/literal envelope of a call.
    static std::string envelope(const std::string &operation, const Arguments &arguments);
    /// The port that serves an operation.
    static std::string portOf(const std::string &operation);

private:
    std::string m_baseUrl;
};
