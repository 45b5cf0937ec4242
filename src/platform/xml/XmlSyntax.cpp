#include "platform/xml/XmlSyntax.h"

#include <vector>

namespace {

constexpr auto npos = std::string_view::npos;

bool isNameStart(unsigned char c)
{
    // Bytes of multi-byte UTF-8 sequences count as name characters, as the parser takes them.
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
}

bool isNameChar(unsigned char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isXmlChar(unsigned long c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

int digitValue(char c, int base)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (base == 16 && c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (base == 16 && c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// text[pos] is '&'. Returns the position after the reference's ';', or npos.
std::size_t skipReference(std::string_view text, std::size_t pos)
{
    // The longest valid reference body is "#x10FFFF" or a run of leading zeros before it;
    // a generous window keeps a stray '&' from scanning the rest of the text.
    const std::size_t end = text.substr(pos, 40).find(';');
    if (end == npos)
        return npos;
    const std::string_view body = text.substr(pos + 1, end - 1);
    if (body == "amp" || body == "lt" || body == "gt" || body == "quot" || body == "apos")
        return pos + end + 1;
    if (body.size() < 2 || body[0] != '#')
        return npos;
    const int base = body[1] == 'x' ? 16 : 10;
    const std::string_view digits = body.substr(base == 16 ? 2 : 1);
    if (digits.empty())
        return npos;
    unsigned long value = 0;
    for (char c : digits) {
        const int digit = digitValue(c, base);
        if (digit < 0)
            return npos;
        value = value * base + digit;
        if (value > 0x10FFFF)
            return npos;
    }
    return isXmlChar(value) ? pos + end + 1 : npos;
}

std::size_t skipPast(std::string_view text, std::size_t from, std::string_view terminator)
{
    const std::size_t found = text.find(terminator, from);
    return found == npos ? npos : found + terminator.size();
}

// A document type declaration, whose internal subset may hold '>' inside brackets or quotes.
std::size_t skipDoctype(std::string_view text, std::size_t pos)
{
    int depth = 0;
    char quote = 0;
    for (std::size_t i = pos + 2; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != 0) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '[') {
            ++depth;
        } else if (c == ']') {
            --depth;
        } else if (c == '>' && depth == 0) {
            return i + 1;
        }
    }
    return npos;
}

std::size_t skipBlanks(std::string_view text, std::size_t i)
{
    while (i < text.size() && isBlank(text[i]))
        ++i;
    return i;
}

std::size_t skipName(std::string_view text, std::size_t i)
{
    if (i >= text.size() || !isNameStart(text[i]))
        return npos;
    while (i < text.size() && isNameChar(text[i]))
        ++i;
    return i;
}

// text[pos] is the '<' of a start tag. Returns the position after its '>', or npos.
std::size_t skipStartTag(std::string_view text, std::size_t pos,
                         std::vector<std::string_view> &names)
{
    names.clear();
    std::size_t i = skipName(text, pos + 1);
    if (i == npos)
        return npos;
    for (;;) {
        const std::size_t afterBlanks = skipBlanks(text, i);
        const bool separated = afterBlanks > i;
        i = afterBlanks;
        if (i >= text.size())
            return npos;
        if (text[i] == '>')
            return i + 1;
        if (text[i] == '/')
            return text.substr(i, 2) == "/>" ? i + 2 : npos;
        const std::size_t nameEnd = separated ? skipName(text, i) : npos;
        if (nameEnd == npos)
            return npos;
        const std::string_view name = text.substr(i, nameEnd - i);
        for (std::string_view seen : names) {
            if (seen == name)
                return npos;
        }
        names.push_back(name);
        i = skipBlanks(text, nameEnd);
        if (i >= text.size() || text[i] != '=')
            return npos;
        i = skipBlanks(text, i + 1);
        if (i >= text.size() || (text[i] != '"' && text[i] != '\''))
            return npos;
        const char quote = text[i++];
        while (i < text.size() && text[i] != quote) {
            if (text[i] == '<')
                return npos;
            i = text[i] == '&' ? skipReference(text, i) : i + 1;
            if (i == npos)
                return npos;
        }
        if (i >= text.size())
            return npos;
        ++i;
    }
}

bool isDeclarationAt(std::string_view text, std::size_t pos)
{
    const std::string_view rest = text.substr(pos);
    return rest.starts_with("<?xml") && (rest.size() == 5 || isBlank(rest[5]) || rest[5] == '?');
}

// The text is read as UTF-8: a byte that does not start or continue a sequence (an ERP writing
// é as the one Latin-1 byte 0xE9, say), an overlong form or a surrogate is not a character.
bool isUtf8(std::string_view text)
{
    std::size_t pos = 0;
    while (pos < text.size()) {
        const auto lead = static_cast<unsigned char>(text[pos]);
        const std::size_t length = lead < 0x80   ? 1
                                   : lead < 0xC2 ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF5 ? 4
                                                 : 0;
        if (length == 0 || pos + length > text.size())
            return false;
        char32_t code = length == 1 ? lead : lead & (0x7F >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[pos + i]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = (code << 6) | (next & 0x3F);
        }
        const char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (code < least[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        pos += length;
    }
    return true;
}

} // namespace

bool passesStrictMarkupRules(std::string_view text)
{
    for (unsigned char c : text) {
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r')
            return false;
    }
    if (!isUtf8(text))
        return false;
    std::vector<std::string_view> attributeNames;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const char c = text[pos];
        if (c == '&') {
            pos = skipReference(text, pos);
            if (pos == npos)
                return false;
            continue;
        }
        if (c == ']' && text.substr(pos, 3) == "]]>")
            return false;
        if (c != '<') {
            ++pos;
            continue;
        }
        const std::string_view rest = text.substr(pos);
        if (rest.starts_with("<!--"))
            pos = skipPast(text, pos + 4, "-->");
        else if (rest.starts_with("<![CDATA["))
            pos = skipPast(text, pos + 9, "]]>");
        else if (isDeclarationAt(text, pos) && pos != 0)
            return false;
        else if (rest.starts_with("<?"))
            pos = skipPast(text, pos + 2, "?>");
        else if (rest.starts_with("<!"))
            pos = skipDoctype(text, pos);
        else if (rest.starts_with("</"))
            pos = skipPast(text, pos + 2, ">");
        else
            pos = skipStartTag(text, pos, attributeNames);
        if (pos == npos)
            return false;
    }
    return true;
}

bool isXmlName(std::string_view name)
{
    return !name.empty() && skipName(name, 0) == name.size();
}
