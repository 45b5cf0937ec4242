#pragma once

#include <string>

/// The WSDL 1.1 text of the catalogue service: rpc style, literal use, every result a string.
class WsdlDocument
{
public:
    /// baseUrl is "http://host:port" as the client reached us, so the port addresses work
    /// on whatever port the server runs.
    static std::string text(const std::string &baseUrl);
};
