#pragma once

#include <cstddef>
#include <string_view>

/// Sizes, in characters, of the buffers that callers hand to the ERP connector.
namespace CallerBufferSize {
inline constexpr std::size_t ClientString = 256;
inline constexpr std::size_t Reply = 65535;
inline constexpr std::size_t DepositPosition = 1000;
inline constexpr std::size_t CategoryPosition = 100;
inline constexpr std::size_t SearchLastId = 1000;
} // namespace CallerBufferSize

/// Writes text into a caller's buffer of size characters, NUL included: a text that does not fit
/// is cut at the buffer, as the connector always did. A null buffer or a size of 0 writes nothing.
void copyToCallerBuffer(std::string_view text, char *buffer, std::size_t size);
