#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

/// A document the marketplace answered, as text and as XML, with the HTTP status of the call
/// (0 when the connection failed).
struct MarketplaceReply
{
    int httpStatus = 0;
    std::string text;
    std::shared_ptr<pugi::xml_document> doc = std::make_shared<pugi::xml_document>();
    bool wellFormed = false;

    /// Takes the text and reads it as a document.
    void read(std::string document);
    /// RETURNCODE of the document's RESULT; 0 when there is no RESULT.
    int code() const;
    std::string description() const;
    /// The texts of the elements, or the values of the attributes, an XPath selects, in
    /// document order.
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
    /// Posts any body to a port's endpoint; the reply's Result is read as the document.
    MarketplaceReply post(const std::string &port, const std::string &body) const;
    /// GET of a path; the body, empty on failure.
    std::string get(const std::string &path) const;

    /// The rpc/literal envelope of a call.
    static std::string envelope(const std::string &operation, const Arguments &arguments);

private:
    std::string m_baseUrl;
};
