#pragma once

#include <QString>
#include <string>

// The property grid keeps every number as the text the seller typed, with gDecimalSeparator,
// and checks limits on that text: no number type holds a Biginteger or a Double's range as a
// decimal, so the limits are compared digit by digit.

/// A number text taken apart by ParseFloat.
struct ParsedFloat
{
    std::string digits = "0";
    int exponent = 0;
    /// Left as it was when the text is empty.
    bool positive = false;
};

/// True for an empty text and for a decimal number written with gDecimalSeparator, with an
/// optional sign and an optional exponent ("5.", ".5", "+5", "1e5", "1.5E-3"); false for a lone
/// separator or sign, "E5", "1E", "1E+", "1.2.3".
bool ValidateFloat(const std::string &text);

/// Splits `text` into a digit string, a decimal exponent and a sign. With a separator the digit
/// string starts with the position of the first significant character, not with the integer
/// digits themselves ("12.5" gives 15, "0.5" gives 25); the count of integer digits still
/// reaches the exponent.
void ParseFloat(const std::string &text, ParsedFloat &parsed);

/// 1 when `a` is greater, -1 when smaller, 0 when equal, by ParseFloat's parts: a greater
/// exponent wins, equal exponents compare the digit strings as text. So 190.1 is below 150 and
/// 100.5 above 100, while 100.0 stays below 100.
int CompareFloats(const std::string &a, const std::string &b);

/// A decimal text as the grid stores it (gDecimalSeparator), or as the ERP and the wire write
/// it ("."), as a double. Never through the process locale. TypeMismatch (13) when the text is
/// not a number.
double decimalValue(const std::string &text);

/// decimalValue rounded to the four decimals of a currency amount.
double currencyValue(const std::string &text);

/// A double as the machine writes it: at most 15 significant digits, no trailing zeros,
/// gDecimalSeparator, an exponent only for very large or small magnitudes ("1E+15").
std::string doubleText(double value);

/// Rounded to two decimals, halves to the even cent.
double roundCents(double value);

/// What a cell's editor lets through as typed characters.
enum class KeyRule {
    Anything,
    /// Digits only.
    Digits,
    /// Digits and one gDecimalSeparator, with at most a given number of decimals.
    Decimal,
};

/// Whether `key`, typed at `start` (the caret, or the start of the selection it replaces) into
/// `text`, is let through. The separator can neither come first nor leave more than `decimals`
/// digits behind it; no digit goes past `decimals` decimals. Signs and exponent letters are
/// always refused by Digits and Decimal.
bool keyAccepted(KeyRule rule, int decimals, const QString &text, int start, QChar key);
