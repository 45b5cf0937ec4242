#pragma once

#include <cstdint>
#include <string>

/// A number as the back-office messages write it: a leading blank when it is not negative
/// (" 5", "-2048").
std::string signedDecimal(std::int32_t number);

/// A count read from the database as a 16-bit number: rounded half to even, Overflow (6) outside
/// -32768..32767.
std::int16_t toInt16(double value);

/// A text as a 16-bit number: TypeMismatch (13) when it is not a number, Overflow (6) out of
/// range.
std::int16_t toInt16(const std::string &text);
