#pragma once

#include "platform/soap/QualifiedName.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// One argument of an operation: the element that carries it in the request and the simple
/// type it is declared with (empty when the description gives none).
struct SoapParameter
{
    QualifiedName element;
    QualifiedName type;
};

/// What the client needs to call one operation of a port.
struct SoapOperation
{
    std::string name;
    std::string soapAction;
    /// For encoded use, the encoding's URI: the arguments then carry xsi:type. Empty for
    /// literal use.
    std::string encodingStyle;
    /// The element around the arguments: the operation's element in rpc style, the part's
    /// element in the wrapped document form; none for bare document parts.
    std::optional<QualifiedName> requestWrapper;
    std::vector<SoapParameter> parameters;
    /// The return value is the first child of the reply's body element, not that element.
    bool replyWrapped = true;
};

/// A port of a service: where its requests go and its operations by name.
struct SoapPort
{
    std::string address;
    std::map<std::string, SoapOperation> operations;
};
