#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

/// What feria-sim answered to one SOAP request: the HTTP reply, the string the operation
/// returned, and that string read as an XML document.
struct SoapResult
{
    int httpStatus = 0;
    std::string envelope;
    std::string text;
    std::shared_ptr<pugi::xml_document> doc = std::make_shared<pugi::xml_document>();
    bool wellFormed = false;

    pugi::xml_node root() const { return doc->document_element(); }

    /// RETURNCODE of the document's RESULT; 0 when there is no RESULT.
    int code() const;
    std::string description() const;
    /// The nodes an XPath selects in the document.
    pugi::xpath_node_set select(const char *xpath) const { return doc->select_nodes(xpath); }
};

/// SOAP 1.1 requests written by hand, as a client of the marketplace would send them.
class SoapTestClient
{
public:
    using Arguments = std::vector<std::pair<std::string, std::string>>;

    explicit SoapTestClient(std::string baseUrl) : m_baseUrl(std::move(baseUrl)) {}

    /// An rpc/literal call of the operation on its own port, with named arguments in order.
    SoapResult call(const std::string &operation, const Arguments &arguments) const;
    /// Posts any body to a port's endpoint with the given SOAPAction header.
    SoapResult post(const std::string &port, const std::string &body,
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
