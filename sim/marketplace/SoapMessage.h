#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A SOAP 1.1 request read leniently: rpc/literal, rpc/encoded (with href references) and
/// document/literal envelopes, parts qualified or not, matched by name or by position.
class SoapMessage
{
public:
    /// Never throws. A request that cannot be read keeps what could be learnt (the operation
    /// from the SOAPAction header, say) and says why in problem().
    static SoapMessage parse(const std::string &body, const std::string &soapAction);

    /// The operation asked for; empty when neither the body nor the SOAPAction names one.
    const std::string &operation() const { return m_operation; }
    /// Empty when the envelope was read; otherwise a Spanish description of the fault.
    const std::string &problem() const { return m_problem; }

    /// The text of the argument whose element has the part's name (any prefix, any case),
    /// else the argument in that position; nullopt when there is neither.
    std::optional<std::string> argument(std::string_view partName, size_t position) const;

    /// A SOAP 1.1 response whose single part holds result as an escaped string.
    static std::string response(std::string_view operation, const std::string &result);

private:
    std::string m_operation;
    std::string m_problem;
    std::vector<std::pair<std::string, std::string>> m_arguments;
};
