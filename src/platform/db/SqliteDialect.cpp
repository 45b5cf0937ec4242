#include "platform/db/SqliteDialect.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <optional>

namespace {

enum class TokenKind { End, Blank, Word, Quoted, Symbol };

struct Token
{
    TokenKind kind = TokenKind::End;
    std::string_view text;
};

bool isWordChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '@' || c == '#' ||
           c == '$';
}

bool isBlank(char c)
{
    return std::isspace(static_cast<unsigned char>(c));
}

bool sameWord(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::toupper(static_cast<unsigned char>(x)) == y;
    });
}

// Splits a statement into words, quoted pieces ('text', "name", [name]), blanks (comments
// included) and single symbols. A copy of the reader is a lookahead.
class TokenReader
{
public:
    explicit TokenReader(std::string_view text) : m_text(text) {}

    Token next()
    {
        if (m_pos >= m_text.size())
            return {};
        const std::size_t start = m_pos;
        const char c = m_text[m_pos];
        TokenKind kind = TokenKind::Symbol;
        if (isBlank(c)) {
            kind = TokenKind::Blank;
            while (m_pos < m_text.size() && isBlank(m_text[m_pos]))
                ++m_pos;
        } else if (m_text.substr(m_pos, 2) == "--") {
            kind = TokenKind::Blank;
            m_pos = std::min(m_text.find('\n', m_pos), m_text.size());
        } else if (m_text.substr(m_pos, 2) == "/*") {
            kind = TokenKind::Blank;
            const auto close = m_text.find("*/", m_pos + 2);
            m_pos = close == std::string_view::npos ? m_text.size() : close + 2;
        } else if (c == '\'' || c == '"' || c == '[') {
            kind = TokenKind::Quoted;
            skipQuoted(c == '[' ? ']' : c);
        } else if (isWordChar(c)) {
            kind = TokenKind::Word;
            while (m_pos < m_text.size() && isWordChar(m_text[m_pos]))
                ++m_pos;
        } else {
            ++m_pos;
        }
        return {kind, m_text.substr(start, m_pos - start)};
    }

    // The next token that is not a blank.
    Token nextSolid()
    {
        Token token = next();
        while (token.kind == TokenKind::Blank)
            token = next();
        return token;
    }

private:
    void skipQuoted(char close)
    {
        // A doubled closing quote stands for itself inside the quotes.
        for (++m_pos; m_pos < m_text.size(); ++m_pos) {
            if (m_text[m_pos] != close)
                continue;
            if (m_pos + 1 < m_text.size() && m_text[m_pos + 1] == close) {
                ++m_pos;
                continue;
            }
            ++m_pos;
            return;
        }
    }

    std::string_view m_text;
    std::size_t m_pos = 0;
};

bool isLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Reads 1 to maxDigits digits at pos.
std::optional<int> readNumber(std::string_view text, std::size_t &pos, std::size_t maxDigits)
{
    const std::size_t start = pos;
    int value = 0;
    while (pos < text.size() && pos - start < maxDigits &&
           std::isdigit(static_cast<unsigned char>(text[pos])))
        value = value * 10 + (text[pos++] - '0');
    if (pos == start)
        return std::nullopt;
    return value;
}

// "y-m-d", "y-m-d h:n" or "y-m-d h:n:s", unpadded or padded, as style 120 reads it, written
// back in the padded form that sorts and compares as text.
std::optional<std::string> normalisedDate(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    std::array<int, 6> part{};
    std::size_t pos = 0;
    const std::array<char, 6> before{'\0', '-', '-', ' ', ':', ':'};
    const std::array<std::size_t, 6> width{4, 2, 2, 2, 2, 2};
    std::size_t count = 0;
    for (; count < part.size() && pos < text.size(); ++count) {
        if (count > 0) {
            if (text[pos] != before[count])
                return std::nullopt;
            ++pos;
            while (count == 3 && pos < text.size() && text[pos] == ' ')
                ++pos;
        }
        const auto number = readNumber(text, pos, width[count]);
        if (!number)
            return std::nullopt;
        part[count] = *number;
    }
    if (pos != text.size() || count == 4 || count < 3)
        return std::nullopt;
    const auto [year, month, day, hour, minute, second] = part;
    static constexpr std::array<int, 12> monthDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 1753 || month < 1 || month > 12 || day < 1 || hour > 23 || minute > 59 ||
        second > 59)
        return std::nullopt;
    if (day > monthDays[month - 1] + (month == 2 && isLeapYear(year) ? 1 : 0))
        return std::nullopt;
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "'%04d-%02d-%02d %02d:%02d:%02d'", year, month, day, hour,
                  minute, second);
    return std::string(buffer);
}

// Reads "(datetime, 'text', 120)" after CONVERT and gives the literal it stands for; on a
// different form or a date that is not one, gives nothing and says why.
std::optional<std::string> convertedDate(TokenReader &reader, std::string &problem)
{
    const Token open = reader.nextSolid();
    const Token type = reader.nextSolid();
    const Token comma1 = reader.nextSolid();
    const Token value = reader.nextSolid();
    const Token comma2 = reader.nextSolid();
    const Token style = reader.nextSolid();
    const Token close = reader.nextSolid();
    if (open.text != "(" || !sameWord(type.text, "DATETIME") || comma1.text != "," ||
        !value.text.starts_with('\'') || comma2.text != "," || style.text != "120" ||
        close.text != ")") {
        problem = "CONVERT sólo se admite en la forma "
                  "CONVERT(datetime, 'año-mes-día hora:minuto:segundo', 120)";
        return std::nullopt;
    }
    const auto date = value.text.substr(1, value.text.size() - 2);
    auto literal = normalisedDate(date);
    if (!literal)
        problem = "La fecha «" + std::string(date) + "» de CONVERT no es válida";
    return literal;
}

} // namespace

SqliteTranslation toSqliteDialect(std::string_view statement)
{
    SqliteTranslation result;
    result.text.reserve(statement.size() + 16);
    TokenReader reader(statement);
    for (Token token = reader.next(); token.kind != TokenKind::End; token = reader.next()) {
        if (token.kind != TokenKind::Word) {
            result.text += token.text;
        } else if (sameWord(token.text, "@@IDENTITY")) {
            result.text += "last_insert_rowid()";
        } else if (sameWord(token.text, "DELETE")) {
            result.text += token.text;
            TokenReader ahead = reader;
            const Token target = ahead.nextSolid();
            if (target.kind != TokenKind::Symbol && target.kind != TokenKind::End &&
                !sameWord(target.text, "FROM"))
                result.text += " FROM";
        } else if (sameWord(token.text, "CONVERT")) {
            const auto literal = convertedDate(reader, result.problem);
            if (!literal)
                return result;
            result.text += *literal;
        } else {
            result.text += token.text;
        }
    }
    return result;
}
