#include "platform/xml/Base64.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<int, 256> decodingTable()
{
    std::array<int, 256> table{};
    table.fill(-1);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        table[static_cast<unsigned char>(kAlphabet[i])] = static_cast<int>(i);
    return table;
}

} // namespace

std::string encodeBase64(const std::vector<std::uint8_t> &bytes, std::size_t lineLength)
{
    const std::size_t digits = (bytes.size() + 2) / 3 * 4;
    const std::size_t breaks = lineLength == 0 || digits == 0 ? 0 : (digits - 1) / lineLength;
    // Written in one pass, breaks included: a picture of a megabyte is encoded on every send.
    std::string text(digits + breaks, '\n');
    char *out = text.data();
    std::size_t column = 0;
    const auto put = [&](char digit) {
        if (lineLength != 0 && column == lineLength) {
            ++out; // the line break already stands there
            column = 0;
        }
        *out++ = digit;
        ++column;
    };
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = std::uint32_t{bytes[i]} << 16;
        if (count > 1)
            group |= std::uint32_t{bytes[i + 1]} << 8;
        if (count > 2)
            group |= bytes[i + 2];
        for (std::size_t k = 0; k < 4; ++k)
            put(k <= count ? kAlphabet[(group >> (18 - 6 * k)) & 0x3F] : '=');
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text)
{
    static constexpr std::array<int, 256> table = decodingTable();
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (char c : text) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            continue;
        const int value = table[static_cast<unsigned char>(c)];
        if (c == '=') {
            ++padding;
            continue;
        }
        if (value < 0 || padding > 0)
            return std::nullopt;
        group = (group << 6) | static_cast<std::uint32_t>(value);
        if (++digits % 4 == 0) {
            bytes.push_back(static_cast<std::uint8_t>(group >> 16));
            bytes.push_back(static_cast<std::uint8_t>(group >> 8));
            bytes.push_back(static_cast<std::uint8_t>(group));
            group = 0;
        }
    }
    const std::size_t tail = digits % 4;
    if (tail == 1 || (padding > 0 && tail + padding != 4))
        return std::nullopt;
    if (tail == 2) {
        bytes.push_back(static_cast<std::uint8_t>(group >> 4));
    } else if (tail == 3) {
        bytes.push_back(static_cast<std::uint8_t>(group >> 10));
        bytes.push_back(static_cast<std::uint8_t>(group >> 2));
    }
    return bytes;
}
