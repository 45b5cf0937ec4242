#include "platform/soap/HttpTransport.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <tuple>

namespace {

TEST(HttpTransportTest, theSilenceAllowedComesFromTheEnvironmentInWholeSeconds)
{
    const std::vector<std::tuple<const char *, std::optional<std::string>, long>> rows = {
        {"nothing set: a minute, for a seller on a slow line", std::nullopt, 60},
        {"two seconds", "2", 2},
        {"ten minutes", "600", 600},
        {"zero would never wait", "0", 60},
        {"a negative number", "-5", 60},
        {"a fraction", "1.5", 60},
        {"a unit after the number", "30s", 60},
        {"a word", "mucho", 60},
        {"empty", "", 60},
    };
    for (const auto &[situation, value, seconds] : rows) {
        SCOPED_TRACE(situation);
        if (value)
            setenv("ASISTENTE_MARKETPLACE_TIMEOUT", value->c_str(), 1);
        else
            unsetenv("ASISTENTE_MARKETPLACE_TIMEOUT");
        EXPECT_EQ(HttpTransport().silenceLimit().count(), seconds);
    }
    unsetenv("ASISTENTE_MARKETPLACE_TIMEOUT");
}

} // namespace
