#pragma once

#include <QDateTime>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The decimal separator of the user's locale, read once when the program starts. Tests may
/// assign it.
extern std::string gDecimalSeparator;

/// The separator a locale writes in 1.1.
std::string decimalSeparatorOf(const class QLocale &locale);

double MaxOf(double a, double b);
double MinOf(double a, double b);

/// A text in the locale's form (or the database's y-m-d h:n:s form) as a date. On failure the
/// error is reported and the result is the zero date, 30 December 1899 at midnight.
QDateTime convertToDate(const std::string &text);

/// year-month-day hour:minute:second with no padding (2004-3-12 8:9:0), for the database and
/// for documents, where a date must not depend on the locale.
std::string convertToString(const QDateTime &value);

/// A number as the wire and the tables write it ("12.5", "-3", "+7", "1e3"), whatever the
/// process's locale; nothing when `text` is anything else, or beyond a double's range.
std::optional<double> wireNumber(std::string_view text);

/// The leading number of `text` as a lenient reader takes it: blanks skipped, a sign, digits and
/// a decimal part ("12abc" is 12, "abc" and "" are 0), rounded half to even. Overflow beyond
/// 32 bits.
std::int32_t leadingNumber(const std::string &text);

/// `text` as a whole number, rounded half to even; TypeMismatch when it is not a number,
/// Overflow beyond 32 bits.
std::int32_t wholeNumber(const std::string &text);
