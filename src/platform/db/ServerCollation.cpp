#include "platform/db/ServerCollation.h"

#include <sqlite3.h>

namespace {

// One code point from UTF-8. A byte that does not start a valid sequence stands for itself,
// lifted above the Unicode range so that it never equals a real character.
char32_t nextCodePoint(const unsigned char *&p, const unsigned char *end)
{
    const unsigned char lead = *p++;
    if (lead < 0x80)
        return lead;
    const int extra = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (extra == 0 || lead > 0xF4 || end - p < extra)
        return 0x110000 + lead;
    char32_t code = lead & (0x3F >> extra);
    for (int i = 0; i < extra; ++i) {
        if ((p[i] & 0xC0) != 0x80)
            return 0x110000 + lead;
        code = (code << 6) | (p[i] & 0x3F);
    }
    p += extra;
    return code;
}

// Upper-case letters of ASCII and Latin-1 become lower case; × (U+00D7) has no case.
char32_t folded(char32_t c)
{
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return c + 0x20;
    return c;
}

int withoutTrailingBlanks(const char *text, int length)
{
    while (length > 0 && text[length - 1] == ' ')
        --length;
    return length;
}

int collate(void *, int aLength, const void *a, int bLength, const void *b)
{
    return compareServerText(static_cast<const char *>(a), aLength, static_cast<const char *>(b),
                             bLength);
}

} // namespace

int compareServerText(const char *a, int aLength, const char *b, int bLength)
{
    auto *p = reinterpret_cast<const unsigned char *>(a);
    auto *q = reinterpret_cast<const unsigned char *>(b);
    const auto *pEnd = p + withoutTrailingBlanks(a, aLength);
    const auto *qEnd = q + withoutTrailingBlanks(b, bLength);
    while (p < pEnd && q < qEnd) {
        const char32_t x = folded(nextCodePoint(p, pEnd));
        const char32_t y = folded(nextCodePoint(q, qEnd));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return (p < pEnd) - (q < qEnd);
}

int registerServerCollation(sqlite3 *db)
{
    return sqlite3_create_collation_v2(db, kServerCollation, SQLITE_UTF8, nullptr, collate,
                                       nullptr);
}
