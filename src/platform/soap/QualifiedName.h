#pragma once

#include <string>
#include <string_view>

/// An XML name with its namespace resolved: the namespace URI (empty for none) and the local
/// part.
struct QualifiedName
{
    std::string uri;
    std::string local;

    bool operator==(const QualifiedName &) const = default;
};

inline constexpr const char *kXmlSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

/// True for the namespaces whose simple types (string, short, int...) the client knows: the
/// three editions of XML Schema that service descriptions use, and SOAP encoding's copies.
inline bool isBuiltInTypeNamespace(std::string_view uri)
{
    return uri == kXmlSchemaNamespace || uri == "http://www.w3.org/2000/10/XMLSchema" ||
           uri == "http://www.w3.org/1999/XMLSchema" ||
           uri == "http://schemas.xmlsoap.org/soap/encoding/";
}
