#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

/// Sizes of the buffers the ERP library writes into; the caller owns them.
namespace DovelAPI {
inline constexpr std::size_t kClientFieldSize = 256;
inline constexpr std::size_t kReplySize = 65535;
inline constexpr std::size_t kDepositPositionSize = 1000;
inline constexpr std::size_t kCategoryPositionSize = 100;
inline constexpr std::size_t kLastIdSize = 1000;
} // namespace DovelAPI

/// A caller-owned character buffer for a connector library, filled with NUL. The library writes
/// a NUL-terminated text into it; one more NUL past the end keeps a library that fills it to
/// the last byte from running the text off the end.
class ConnectorBuffer
{
public:
    explicit ConnectorBuffer(std::size_t size) : m_bytes(size + 1, '\0') {}

    char *data() { return m_bytes.data(); }
    /// The text up to the first NUL.
    std::string text() const { return std::string(m_bytes.data()); }
    /// Puts `text` at the start, cut to the buffer, leaving the rest NUL.
    void assign(const std::string &text)
    {
        std::fill(m_bytes.begin(), m_bytes.end(), '\0');
        text.copy(m_bytes.data(), std::min(text.size(), m_bytes.size() - 1));
    }

private:
    std::vector<char> m_bytes;
};
