#include "shell/Constants.h"

#include "shell/ErrorHandling.h"

#include <QLocale>

#include <cctype>
#include <cmath>
#include <cstdlib>
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

std::int32_t leadingNumber(const std::string &text)
{
    std::size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
        ++i;
    std::size_t end = i;
    if (end < text.size() && (text[end] == '-' || text[end] == '+'))
        ++end;
    const auto digits = [&] {
        while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])))
            ++end;
    };
    digits();
    if (end < text.size() && text[end] == '.') {
        ++end;
        digits();
    }
    return roundedToInt32(std::strtod(text.substr(i, end - i).c_str(), nullptr));
}

std::int32_t wholeNumber(const std::string &text)
{
    const std::string trimmed = QString::fromStdString(text).trimmed().toStdString();
    char *end = nullptr;
    const double value = std::strtod(trimmed.c_str(), &end);
    if (trimmed.empty() || end != trimmed.c_str() + trimmed.size() || !std::isfinite(value))
        raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
    return roundedToInt32(value);
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
