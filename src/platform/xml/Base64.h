#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// bytes in base64 with padding, broken with "\n" every lineLength characters (0: one line).
std::string encodeBase64(const std::vector<std::uint8_t> &bytes, std::size_t lineLength);

/// The bytes text encodes; blanks and line breaks are skipped. Nothing when text holds other
/// characters or a length no encoder produces.
std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text);
