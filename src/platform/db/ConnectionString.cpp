#include "platform/db/ConnectionString.h"

#include <algorithm>
#include <cctype>

namespace {

std::string trimmed(const std::string &text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool sameText(const std::string &a, const std::string &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

// Reads "{...}" from the opening brace at pos; "}}" inside stands for one brace.
// Returns the value and leaves pos after the closing brace.
std::string bracedValue(const std::string &text, std::size_t &pos)
{
    std::string value;
    for (++pos; pos < text.size(); ++pos) {
        if (text[pos] != '}') {
            value += text[pos];
        } else if (pos + 1 < text.size() && text[pos + 1] == '}') {
            value += '}';
            ++pos;
        } else {
            ++pos;
            break;
        }
    }
    return value;
}

} // namespace

ConnectionString::ConnectionString(const std::string &text)
{
    std::size_t pos = 0;
    while (pos < text.size()) {
        const auto equals = text.find('=', pos);
        const auto semicolon = text.find(';', pos);
        if (equals == std::string::npos || semicolon < equals) {
            // A piece without "=" names nothing; drivers skip it too.
            pos = semicolon == std::string::npos ? text.size() : semicolon + 1;
            continue;
        }
        Pair pair{trimmed(text.substr(pos, equals - pos)), {}};
        pos = text.find_first_not_of(' ', equals + 1);
        if (pos != std::string::npos && text[pos] == '{') {
            pair.value = bracedValue(text, pos);
            pos = text.find(';', pos);
        } else {
            pos = std::min(pos, text.size());
            const auto stop = std::min(text.find(';', pos), text.size());
            pair.value = trimmed(text.substr(pos, stop - pos));
            pos = stop;
        }
        pos = pos < text.size() ? pos + 1 : text.size();
        if (!pair.key.empty())
            m_pairs.push_back(std::move(pair));
    }
}

std::string ConnectionString::value(const std::string &key) const
{
    const auto index = indexOf(key);
    return index < m_pairs.size() ? m_pairs[index].value : std::string();
}

bool ConnectionString::hasServerDriver() const
{
    return sameText(value("Driver"), "SQL Server");
}

void ConnectionString::set(const std::string &key, const std::string &value)
{
    const auto index = indexOf(key);
    if (index < m_pairs.size())
        m_pairs[index].value = value;
    else
        m_pairs.push_back({key, value});
}

std::string ConnectionString::text() const
{
    std::string text;
    for (const auto &pair : m_pairs) {
        if (!text.empty())
            text += ';';
        text += pair.key + '=';
        // Driver names hold blanks ("SQL Server") and are braced by custom.
        if (pair.value.find_first_of(";{}") == std::string::npos && !sameText(pair.key, "Driver")) {
            text += pair.value;
            continue;
        }
        text += '{';
        for (const char c : pair.value)
            text += c == '}' ? std::string("}}") : std::string(1, c);
        text += '}';
    }
    return text;
}

std::size_t ConnectionString::indexOf(const std::string &key) const
{
    const auto it = std::find_if(m_pairs.begin(), m_pairs.end(),
                                 [&](const Pair &pair) { return sameText(pair.key, key); });
    return static_cast<std::size_t>(it - m_pairs.begin());
}
