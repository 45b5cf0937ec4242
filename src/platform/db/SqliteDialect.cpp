#include "platform/db/SqliteDialect.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

enum class TokenKind { End, Blank, Word, Quoted, Symbol };

struct Token
{
    TokenKind kind = TokenKind::End;
    std::string_view text;
};

// ASCII tests of our own: those of <cctype> consult the locale for every character, and this
// runs on every statement.
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordChar(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '@' ||
           c == '#' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// a is the upper-case word b, in any case.
bool sameWord(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return (x >= 'a' && x <= 'z' ? x - 32 : x) == y; });
}

void appendPadded(std::string &text, int value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    if (digits.size() < width)
        text.append(width - digits.size(), '0');
    text += digits;
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

    std::size_t position() const { return m_pos; }

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
        for (std::size_t from = m_pos + 1;;) {
            const auto found = m_text.find(close, from);
            if (found == std::string_view::npos) {
                m_pos = m_text.size();
                return;
            }
            if (found + 1 < m_text.size() && m_text[found + 1] == close) {
                from = found + 2;
                continue;
            }
            m_pos = found + 1;
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
    while (pos < text.size() && pos - start < maxDigits && isDigit(text[pos]))
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
    std::string literal = "'";
    appendPadded(literal, year, 4);
    for (const auto &[separator, value] :
         {std::pair{'-', month}, {'-', day}, {' ', hour}, {':', minute}, {':', second}}) {
        literal += separator;
        appendPadded(literal, value, 2);
    }
    return literal + "'";
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
    // What needs no change is copied in whole spans, up to the next rewrite.
    std::size_t copied = 0;
    const auto rewrite = [&](const Token &from, std::size_t to, std::string_view with) {
        const auto start = static_cast<std::size_t>(from.text.data() - statement.data());
        result.text.append(statement.substr(copied, start - copied)).append(with);
        copied = to;
    };
    TokenReader reader(statement);
    for (Token token = reader.next(); token.kind != TokenKind::End; token = reader.next()) {
        if (token.kind != TokenKind::Word)
            continue;
        if (sameWord(token.text, "@@IDENTITY")) {
            rewrite(token, reader.position(), "last_insert_rowid()");
        } else if (sameWord(token.text, "DELETE")) {
            TokenReader ahead = reader;
            const Token target = ahead.nextSolid();
            if (target.kind != TokenKind::Symbol && target.kind != TokenKind::End &&
                !sameWord(target.text, "FROM"))
                rewrite(token, reader.position(), std::string(token.text) + " FROM");
        } else if (sameWord(token.text, "CONVERT")) {
            const auto literal = convertedDate(reader, result.problem);
            if (!literal)
                return result;
            rewrite(token, reader.position(), *literal);
        }
    }
    result.text.append(statement.substr(copied));
    return result;
}
