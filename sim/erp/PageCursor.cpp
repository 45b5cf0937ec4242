#include "sim/erp/PageCursor.h"

#include <algorithm>

PageCursor::PageCursor(const std::vector<std::string> &keys, std::string_view position,
                       bool forward, std::size_t size)
    : m_count(keys.size()), m_position(position)
{
    // A state without the separator is a single key: it works as both ends.
    const std::size_t separator = position.find('|');
    const std::string first(position.substr(0, separator));
    const std::string last(separator == std::string_view::npos ? position
                                                               : position.substr(separator + 1));
    if (forward) {
        m_begin =
            position.empty() ? 0 : std::upper_bound(keys.begin(), keys.end(), last) - keys.begin();
        m_end = m_begin + std::min(size, m_count - m_begin);
    } else {
        m_end = position.empty()
                    ? m_count
                    : std::lower_bound(keys.begin(), keys.end(), first) - keys.begin();
        m_begin = m_end - std::min(size, m_end);
    }
    if (!empty()) {
        m_position = keys[m_begin] + "|" + keys[m_end - 1];
    }
}
