#pragma once

#include "platform/soap/SoapPort.h"

#include <cstddef>
#include <string>
#include <vector>

/// SOAP 1.1 envelopes: the request of an operation and the return value in its reply.
class SoapEnvelope
{
public:
    /// How much of a reply an error quotes: enough to tell what came, never a whole page.
    static constexpr std::size_t kQuotedReplyLength = 300;

    /// The request envelope of `operation` with `values`, one per parameter in order, as the
    /// text of their elements (escaped here). With encoded use each argument carries xsi:type
    /// and the envelope the encoding style.
    static std::string request(const SoapOperation &operation,
                               const std::vector<std::string> &values);

    /// The return value in `reply`: the text (escaped or CDATA) of the first child of the body's
    /// element, or of that element itself for a bare document reply, qualified or not; empty
    /// when the body holds nothing. Raises AutomationError carrying faultcode and faultstring
    /// when the body is a SOAP Fault, and when the reply is not a SOAP envelope or, with
    /// `faultExpected` (an HTTP 500), holds no Fault.
    static std::string returnValue(const SoapOperation &operation, const std::string &reply,
                                   bool faultExpected);
};
