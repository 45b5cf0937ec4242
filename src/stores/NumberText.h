#pragma once

#include <cstdint>
#include <string>

/// A count read from the database as a 16-bit number: rounded half to even, Overflow (6) outside
/// -32768..32767.
std::int16_t toInt16(double value);

/// A text as a 16-bit number: TypeMismatch (13) when it is not a number, Overflow (6) out of
/// range.
std::int16_t toInt16(const std::string &text);
