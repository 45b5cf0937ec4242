#include "shell/Constants.h"

#include "shell/ErrorHandling.h"

#include <QLocale>

#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>

std::string decimalSeparatorOf(const QLocale &locale)
{
    return locale.toString(1.1).mid(1, 1).toStdString();
}

std::string gDecimalSeparator = decimalSeparatorOf(QLocale::system());

namespace {

std::int32_t roundedToInt32(double value)
{
    const double rounded = std::nearbyint(value); // ties to even, the default rounding mode
    if (rounded > std::numeric_limits<std::int32_t>::max()
        || rounded < std::numeric_limits<std::int32_t>::min())
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    return static_cast<std::int32_t>(rounded);
}

} // namespace

std::optional<double> wireNumber(std::string_view text)
{
    // from_chars, not strtod: the process runs under the seller's locale, whose decimal
    // separator may be ",", while every number on the wire and in the tables has a ".".
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::int32_t leadingNumber(const std::string &text)
{
    std::size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
        ++i;
    std::size_t end = i;
    if (end < text.size() && (text[end] == '-' || text[end] == '+'))
        ++end;
    std::size_t digitCount = 0;
    const auto digits = [&] {
        for (; end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])); ++end)
            ++digitCount;
    };
    digits();
    if (end < text.size() && text[end] == '.') {
        ++end;
        digits();
    }
    if (digitCount == 0) // a sign or a point alone reads as nothing
        return 0;
    const std::optional<double> value = wireNumber(std::string_view(text).substr(i, end - i));
    if (!value)
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    return roundedToInt32(*value);
}

std::int32_t wholeNumber(const std::string &text)
{
    const std::string trimmed = QString::fromStdString(text).trimmed().toStdString();
    const std::optional<double> value = wireNumber(trimmed);
    if (!value || !std::isfinite(*value))
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    return roundedToInt32(*value);
}

double MaxOf(double a, double b)
{
    return a > b ? a : b;
}

double MinOf(double a, double b)
{
    return a < b ? a : b;
}

QDateTime convertToDate(const std::string &text)
{
    const QDateTime zeroDate(QDate(1899, 12, 30), QTime(0, 0));
    const QString value = QString::fromStdString(text).trimmed();
    const QLocale locale = QLocale::system();
    const auto parse = [&]() -> QDateTime {
        for (const auto format : {QLocale::ShortFormat, QLocale::LongFormat}) {
            const QDateTime dateTime = locale.toDateTime(value, format);
            if (dateTime.isValid())
                return dateTime;
            const QDate date = locale.toDate(value, format);
            if (date.isValid())
                return QDateTime(date, QTime(0, 0));
        }
        for (const char *format : {"yyyy-M-d H:m:s", "yyyy-M-d H:m", "yyyy-M-d", "d/M/yyyy H:m:s",
                                   "d/M/yyyy"}) {
            const QDateTime dateTime = QDateTime::fromString(value, format);
            if (dateTime.isValid())
                return dateTime;
        }
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    };
    const QDateTime result = withHandler("Constants:convertToDate", parse);
    return result.isValid() ? result : zeroDate;
}

std::string convertToString(const QDateTime &value)
{
    return withHandler("Constants:convertToString", [&] {
        const QDate date = value.date();
        const QTime time = value.time();
        return std::to_string(date.year()) + "-" + std::to_string(date.month()) + "-"
               + std::to_string(date.day()) + " " + std::to_string(time.hour()) + ":"
               + std::to_string(time.minute()) + ":" + std::to_string(time.second());
    });
}
