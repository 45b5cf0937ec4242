#pragma once

#include "platform/soap/QualifiedName.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <variant>

/// One argument of a SOAP call: a text or a whole number, converted to the type the service
/// declares for it when the call is made.
class SoapArgument
{
public:
    SoapArgument(std::string text) : m_value(std::move(text)) {}
    SoapArgument(const char *text) : m_value(std::string(text)) {}
    template <std::integral Number>
    requires(!std::same_as<Number, bool> &&
             (std::signed_integral<Number> || sizeof(Number) < sizeof(std::int64_t)))
        SoapArgument(Number number)
        : m_value(static_cast<std::int64_t>(number))
    {
    }

    /// The argument as the text of an element of the simple type `type`, for the parameter
    /// called `parameter`. For the integer types of XML Schema (short, int, unsignedByte...)
    /// raises Overflow (6) when the value falls outside the type's range, and TypeMismatch (13)
    /// when a text is not a whole number. Any other type takes the text, or the number in
    /// decimal, as it is.
    std::string toText(const QualifiedName &type, const std::string &parameter) const;

private:
    std::variant<std::string, std::int64_t> m_value;
};
