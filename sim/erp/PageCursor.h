#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// One page of an ordered list, chosen from the resume state that the caller keeps between
/// calls. The state is the first and the last key of the page given before, joined by "|", so
/// a page follows the previous one even when rows came or went in between.
class PageCursor
{
public:
    /// keys: the whole list's keys, ascending. position: the state the previous call left, or
    /// an empty text to start (forwards from the first key, backwards from the last).
    PageCursor(const std::vector<std::string> &keys, std::string_view position, bool forward,
               std::size_t size);

    /// The page is keys [begin, end).
    std::size_t begin() const { return m_begin; }
    std::size_t end() const { return m_end; }
    bool empty() const { return m_begin == m_end; }
    std::size_t size() const { return m_end - m_begin; }
    /// Nothing comes before the page, or after it.
    bool atStart() const { return m_begin == 0; }
    bool atEnd() const { return m_end == m_count; }
    /// The state to hand back: the old one when the page is empty, so the caller can still
    /// turn round.
    const std::string &position() const { return m_position; }

private:
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_count = 0;
    std::string m_position;
};
