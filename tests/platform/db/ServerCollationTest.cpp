#include "platform/db/ServerCollation.h"

#include <gtest/gtest.h>
#include <string>

namespace {

int compare(const std::string &a, const std::string &b)
{
    return compareServerText(a.data(), static_cast<int>(a.size()), b.data(),
                             static_cast<int>(b.size()));
}

} // namespace

TEST(ServerCollationTest, textComparesAsOnTheServer)
{
    const std::tuple<const char *, const char *, bool> rows[] = {
        {"ZVT-10", "zvt-10   ", true},
        {"ÁRBOL", "árbol", true},
        {"Ñandú", "ñANDÚ", true},
        {" x", "x", false},
        {"a", "á", false},
        {"x\t", "x", false},
        // A broken byte is its own character, not the letter that shares its value.
        {"\xC9", "É", false},
    };
    for (const auto &[a, b, equal] : rows) {
        EXPECT_EQ(compare(a, b) == 0, equal) << a << " / " << b;
        EXPECT_EQ(compare(a, b), -compare(b, a)) << a << " / " << b;
    }
    EXPECT_LT(compare("abc", "ABD"), 0);
}
