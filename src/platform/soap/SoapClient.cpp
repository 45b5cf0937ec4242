#include "platform/soap/SoapClient.h"

#include "platform/core/RaisedError.h"
#include "platform/soap/HttpTransport.h"
#include "platform/soap/SoapEnvelope.h"
#include "platform/soap/WsdlReader.h"

namespace {

// A server that refuses says why in its page: the log keeps the start of it.
std::string statusAndText(const HttpReply &reply)
{
    std::string text = "HTTP status " + std::to_string(reply.status);
    if (!reply.body.empty())
        text += ": " + reply.body.substr(0, SoapEnvelope::kQuotedReplyLength);
    return text;
}

} // namespace

SoapClient::SoapClient() : m_http(std::make_unique<HttpTransport>()) {}

SoapClient::~SoapClient() = default;

void SoapClient::init(const std::string &wsdlUrl, const std::string &serviceName,
                      const std::string &portName, const std::string &wsmlName)
{
    const HttpReply reply = m_http->get(wsdlUrl);
    if (reply.status != 200) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   "The service description at " + wsdlUrl +
                       " can't be read: " + statusAndText(reply));
    }
    m_port = WsdlReader(reply.body, wsdlUrl).port(serviceName, portName);
}

std::string SoapClient::call(const std::string &operation,
                             const std::vector<SoapArgument> &arguments)
{
    if (m_port.address.empty()) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   "The SOAP client is not bound to a service: " + operation + " can't be called");
    }
    const auto found = m_port.operations.find(operation);
    if (found == m_port.operations.end()) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   "The service at " + m_port.address + " has no operation " + operation);
    }
    const SoapOperation &bound = found->second;
    if (arguments.size() != bound.parameters.size()) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   operation + " takes " + std::to_string(bound.parameters.size()) +
                       " arguments, not " + std::to_string(arguments.size()));
    }
    std::vector<std::string> values;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto &parameter = bound.parameters[i];
        values.push_back(arguments[i].toText(parameter.type, parameter.element.local));
    }
    const HttpReply reply = m_http->post(
        m_port.address, SoapEnvelope::request(bound, values),
        {"Content-Type: text/xml; charset=utf-8", "SOAPAction: \"" + bound.soapAction + "\"",
         // Without this curl waits for a "100 Continue" before a large body.
         "Expect:"});
    if (reply.status != 200 && reply.status != 500) {
        raiseError(RuntimeErrorNumber::AutomationError, "The service at " + m_port.address +
                                                            " answered " + operation + " with " +
                                                            statusAndText(reply));
    }
    return SoapEnvelope::returnValue(bound, reply.body, reply.status == 500);
}
