#include "editors/GridNumbers.h"

#include "platform/core/RaisedError.h"
#include "shell/Constants.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

// The routines below count positions from 1, as the rules for typed numbers are stated, so
// that "the position of the separator" reads the same here as in those rules.
class Text
{
public:
    explicit Text(const std::string &text) : m_text(text) {}

    int length() const { return static_cast<int>(m_text.size()); }
    char at(int position) const { return m_text[static_cast<std::size_t>(position - 1)]; }
    bool isDigitAt(int position) const
    {
        const char c = at(position);
        return c >= '0' && c <= '9';
    }
    bool isSeparatorAt(int position) const
    {
        return m_text.compare(static_cast<std::size_t>(position - 1), gDecimalSeparator.size(),
                              gDecimalSeparator) == 0;
    }
    bool isExponentAt(int position) const { return at(position) == 'E' || at(position) == 'e'; }
    /// 1-based position of `what`, 0 when absent.
    int find(const std::string &what) const
    {
        const auto found = m_text.find(what);
        return found == std::string::npos ? 0 : static_cast<int>(found) + 1;
    }
    /// `count` characters from `position`; an empty text for a count below one.
    std::string mid(int position, int count) const
    {
        if (count <= 0 || position > length())
            return {};
        return m_text.substr(static_cast<std::size_t>(position - 1),
                             static_cast<std::size_t>(count));
    }

private:
    const std::string &m_text;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The leading whole number of a text with an optional sign, as a lenient reader takes it
/// ("+3" is 3, "x" is 0); far too large exponents saturate.
int leadingExponent(const std::string &text)
{
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    long long value = 0;
    for (; i < text.size() && isDigit(text[i]); ++i)
        value = std::min(value * 10 + (text[i] - '0'), 100000LL);
    return static_cast<int>(negative ? -value : value);
}

/// The leading digits of a digit string as a double; 0 when there are none.
double leadingDigitsValue(const std::string &digits)
{
    std::size_t end = 0;
    while (end < digits.size() && isDigit(digits[end]))
        ++end;
    double value = 0;
    std::from_chars(digits.data(), digits.data() + end, value);
    return value;
}

} // namespace

bool ValidateFloat(const std::string &value)
{
    const Text text(value);
    if (text.length() == 0)
        return true;
    int pos = 1;
    bool digits = false;
    if (text.at(1) == '+' || text.at(1) == '-')
        pos = 2;
    else if (!text.isDigitAt(1) && !text.isSeparatorAt(1))
        return false;

    for (; pos <= text.length(); ++pos) {
        if (text.isSeparatorAt(pos) || text.isExponentAt(pos))
            break;
        if (!text.isDigitAt(pos))
            return false;
        digits = true;
    }
    if (pos <= text.length() && text.isSeparatorAt(pos)) {
        for (pos += static_cast<int>(gDecimalSeparator.size()); pos <= text.length(); ++pos) {
            if (text.isExponentAt(pos))
                break;
            if (!text.isDigitAt(pos))
                return false;
            digits = true;
        }
    }
    if (pos > text.length())
        return digits;

    if (!digits)
        return false;
    if (++pos > text.length())
        return false;
    if (text.at(pos) == '+' || text.at(pos) == '-') {
        if (++pos > text.length())
            return false;
    }
    for (; pos <= text.length(); ++pos) {
        if (!text.isDigitAt(pos))
            return false;
    }
    return true;
}

void ParseFloat(const std::string &value, ParsedFloat &parsed)
{
    if (value.empty()) {
        parsed.digits = "0";
        parsed.exponent = 0;
        return;
    }
    std::string unsignedText = value;
    parsed.positive = true;
    if (unsignedText.front() == '+' || unsignedText.front() == '-') {
        parsed.positive = unsignedText.front() == '+';
        unsignedText.erase(0, 1);
    }
    const Text text(unsignedText);
    const int sep = text.find(gDecimalSeparator);
    const int exp = std::max(text.find("E"), text.find("e"));

    int first = 1;
    while (first <= text.length() && text.at(first) == '0')
        ++first;
    int last = exp > 0 ? exp - 1 : text.length();
    if (sep > 0) {
        while (last >= 1 && text.at(last) == '0')
            --last;
    }
    if (first > last) {
        parsed.digits = "0";
        parsed.exponent = 0;
        return;
    }
    if (sep > 0) {
        parsed.exponent = sep - first;
        const std::string position = std::to_string(first);
        parsed.digits = position.substr(0, static_cast<std::size_t>(std::max(sep - 1, 0))) +
                        text.mid(sep + 1, last - sep);
    } else {
        parsed.exponent = last - first + 1;
        parsed.digits = text.mid(first, last - first + 1);
    }
    if (exp >= 1)
        parsed.exponent += leadingExponent(unsignedText.substr(static_cast<std::size_t>(exp)));
}

int CompareFloats(const std::string &a, const std::string &b)
{
    ParsedFloat left;
    ParsedFloat right;
    ParseFloat(a, left);
    ParseFloat(b, right);
    if (left.digits == "0" && leadingDigitsValue(right.digits) == 0)
        return 0;
    if (left.positive != right.positive)
        return left.positive ? 1 : -1;
    const int sign = left.positive ? 1 : -1;
    if (left.exponent != right.exponent)
        return left.exponent > right.exponent ? sign : -sign;
    const int order = left.digits.compare(right.digits);
    if (order == 0)
        return 0;
    return order > 0 ? sign : -sign;
}

double decimalValue(const std::string &text)
{
    std::string plain = QString::fromStdString(text).trimmed().toStdString();
    if (!plain.empty() && plain.front() == '+')
        plain.erase(0, 1);
    // The grid's own form first; a text without it may still carry the wire's point.
    if (const auto sep = plain.find(gDecimalSeparator); sep != std::string::npos)
        plain.replace(sep, gDecimalSeparator.size(), ".");
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (plain.empty() || error != std::errc() || end != plain.data() + plain.size() ||
        !std::isfinite(value))
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    return value;
}

double currencyValue(const std::string &text)
{
    return std::nearbyint(decimalValue(text) * 10000.0) / 10000.0;
}

std::string doubleText(double value)
{
    if (value == 0)
        return "0";
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, 15);
    std::string text(buffer.data(), result.ptr);
    if (const auto e = text.find('e'); e != std::string::npos)
        text[e] = 'E';
    if (const auto point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, gDecimalSeparator);
    return text;
}

double roundCents(double value)
{
    return std::nearbyint(value * 100.0) / 100.0;
}

bool keyAccepted(KeyRule rule, int decimals, const QString &text, int start, QChar key)
{
    if (rule == KeyRule::Anything)
        return true;
    const QString separator = QString::fromStdString(gDecimalSeparator);
    const bool digit = key >= QLatin1Char('0') && key <= QLatin1Char('9');
    if (rule == KeyRule::Digits)
        return digit;
    const int sep = static_cast<int>(text.indexOf(separator)) + 1;
    const int length = static_cast<int>(text.length());
    if (QString(key) == separator)
        return !(sep > 0 || start == 0 || start < length - decimals);
    if (digit)
        return !(sep > 0 && start >= sep && length - sep == decimals);
    return false;
}
