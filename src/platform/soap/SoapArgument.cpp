#include "platform/soap/SoapArgument.h"

#include "platform/core/RaisedError.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace {

struct IntegerType
{
    std::string_view name;
    std::int64_t min;
    std::int64_t max;
};

constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

// The unbounded and 64-bit unsigned types are cut to what an argument can hold.
constexpr IntegerType kIntegerTypes[] = {
    {"byte", -128, 127},
    {"unsignedByte", 0, 255},
    {"short", std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()},
    {"unsignedShort", 0, std::numeric_limits<std::uint16_t>::max()},
    {"int", std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()},
    {"unsignedInt", 0, std::numeric_limits<std::uint32_t>::max()},
    {"long", kMin, kMax},
    {"unsignedLong", 0, kMax},
    {"integer", kMin, kMax},
    {"nonNegativeInteger", 0, kMax},
    {"positiveInteger", 1, kMax},
    {"nonPositiveInteger", kMin, 0},
    {"negativeInteger", kMin, -1},
};

const IntegerType *integerType(const QualifiedName &type)
{
    if (!isBuiltInTypeNamespace(type.uri))
        return nullptr;
    for (const auto &candidate : kIntegerTypes) {
        if (candidate.name == type.local)
            return &candidate;
    }
    return nullptr;
}

[[noreturn]] void raiseOverflow(const std::string &value, const std::string &parameter,
                                std::string_view typeName)
{
    raiseError(RuntimeErrorNumber::Overflow, "Overflow: " + value + " does not fit the argument " +
                                                 parameter + " of type " + std::string(typeName));
}

std::int64_t wholeNumber(const std::string &text, const std::string &parameter,
                         std::string_view typeName)
{
    std::int64_t number = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (status == std::errc::result_out_of_range)
        raiseOverflow(text, parameter, typeName);
    if (status != std::errc() || end != text.data() + text.size()) {
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   "Type mismatch: the argument " + parameter + " of type " +
                       std::string(typeName) + " takes a whole number, not '" + text + "'");
    }
    return number;
}

} // namespace

std::string SoapArgument::toText(const QualifiedName &type, const std::string &parameter) const
{
    const IntegerType *range = integerType(type);
    if (range == nullptr) {
        if (const auto *text = std::get_if<std::string>(&m_value))
            return *text;
        return std::to_string(std::get<std::int64_t>(m_value));
    }
    const std::int64_t number =
        std::holds_alternative<std::int64_t>(m_value)
            ? std::get<std::int64_t>(m_value)
            : wholeNumber(std::get<std::string>(m_value), parameter, range->name);
    if (number < range->min || number > range->max)
        raiseOverflow(std::to_string(number), parameter, range->name);
    return std::to_string(number);
}
