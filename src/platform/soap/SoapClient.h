#pragma once

#include "platform/soap/SoapArgument.h"
#include "platform/soap/SoapPort.h"

#include <memory>
#include <string>
#include <vector>

class HttpTransport;

/// A client of one port of a SOAP 1.1 web service, driven by the service's WSDL 1.1
/// description: operations are called by name with their arguments in order, and each gives
/// back its return value as a string. Works with rpc/literal, rpc/encoded and document/literal
/// services alike. Every failure is a RaisedError with a positive number: the platform's own.
class SoapClient
{
public:
    /// Raises AutomationError when the HTTP transport can't be started.
    SoapClient();
    ~SoapClient();
    SoapClient(const SoapClient &) = delete;
    SoapClient &operator=(const SoapClient &) = delete;

    /// Fetches the description at `wsdlUrl` (again at every call) and binds the client to the
    /// port `portName` of the service `serviceName`. `wsmlName` is taken for the callers' sake
    /// and not read: no type-mapping file exists here. Raises AutomationError, with curl's
    /// message or the problem found, when the description can't be fetched, doesn't parse, or
    /// lacks the service, the port or what they refer to; the client then stays bound as it was.
    void init(const std::string &wsdlUrl, const std::string &serviceName,
              const std::string &portName, const std::string &wsmlName = "");

    /// Calls `operation` with `arguments` in the order of its parameters and gives back the
    /// return value's text. Raises Overflow (6) or TypeMismatch (13) when an argument does not
    /// fit its parameter's type (a short takes 16 bits) and AutomationError when the client is
    /// not bound, the port has no such operation, the number of arguments is wrong, the
    /// service answers with a SOAP Fault (faultcode and faultstring in the description) or an
    /// HTTP status other than 200, or the transport fails (curl's message). Never retries.
    std::string call(const std::string &operation, const std::vector<SoapArgument> &arguments);

private:
    std::unique_ptr<HttpTransport> m_http;
    SoapPort m_port;
};
