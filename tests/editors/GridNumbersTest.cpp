#include "editors/GridNumbers.h"

#include "editors/GridDates.h"
#include "platform/core/RaisedError.h"
#include "shell/Constants.h"

#include <gtest/gtest.h>

namespace {

// The grid's own reading of typed numbers, on both kinds of machine: "{sep}" stands for the
// machine's decimal separator.
class GridNumbersTest : public ::testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        m_saved = gDecimalSeparator;
        gDecimalSeparator = GetParam();
    }
    void TearDown() override { gDecimalSeparator = m_saved; }

    static std::string local(std::string text)
    {
        for (auto at = text.find("{sep}"); at != std::string::npos; at = text.find("{sep}"))
            text.replace(at, 5, gDecimalSeparator);
        return text;
    }

private:
    std::string m_saved;
};

TEST_P(GridNumbersTest, CompareFloatsOrdersAsTheLimitsNeed)
{
    struct Row
    {
        const char *what;
        const char *a;
        const char *b;
        int expected;
    };
    const Row rows[] = {
        {"190.1 counts as less than 150 (the fractions decide)", "190{sep}1", "150", -1},
        {"100.5 counts as more than 100", "100{sep}5", "100", 1},
        {"100.0 counts as less than 100", "100{sep}0", "100", -1},
        {"one past the Integer limit is more", "2147483648", "2147483647", 1},
        {"the Integer limit itself is equal", "2147483647", "2147483647", 0},
        {"more digits win", "1000", "999", 1},
        {"leading zeros do not count", "0050", "50", 0},
        {"an empty text is below any limit", "", "50", -1},
        {"zero against zero is equal", "0", "0", 0},
        {"a negative number is below a positive one", "-5", "3", -1},
        {"of two negatives the longer is smaller", "-500", "-5", -1},
        {"an exponent adds to the digits' count", "1e3", "999", 1},
        {"past the Double limit by the exponent", "1E309", "1{sep}79E308", 1},
        {"past the Double limit by the fraction", "1{sep}8E308", "1{sep}79E308", 1},
        {"2.0E308 counts as less than 1.79E308", "2{sep}0E308", "1{sep}79E308", -1},
        {"a Currency amount under its limit", "922337203685477{sep}5", "922337203685477{sep}5807",
         -1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(CompareFloats(local(row.a), local(row.b)), row.expected);
    }
}

TEST_P(GridNumbersTest, ValidateFloatAcceptsPlainAndScientificNumbers)
{
    const char *valid[] = {"", "5{sep}", "{sep}5", "+5", "-5", "1e5", "1{sep}5E-3", "12{sep}50"};
    const char *invalid[] = {"{sep}", "+", "E5", "1E", "1E+", "1{sep}2{sep}3", "12a", "1 5"};
    for (const char *text : valid)
        EXPECT_TRUE(ValidateFloat(local(text))) << text;
    for (const char *text : invalid)
        EXPECT_FALSE(ValidateFloat(local(text))) << text;
}

TEST_P(GridNumbersTest, ParseFloatCountsPositionsNotIntegerDigits)
{
    struct Row
    {
        const char *text;
        const char *digits;
        int exponent;
    };
    const Row rows[] = {
        {"12{sep}5", "15", 2}, {"0{sep}5", "25", 0}, {"100", "100", 3},
        {"000", "0", 0},       {"5e3", "5", 4},      {"100{sep}0", "1", 3},
    };
    for (const Row &row : rows) {
        ParsedFloat parsed;
        ParseFloat(local(row.text), parsed);
        EXPECT_EQ(parsed.digits, row.digits) << row.text;
        EXPECT_EQ(parsed.exponent, row.exponent) << row.text;
    }
}

TEST_P(GridNumbersTest, NumbersAreReadAndWrittenWithoutTheProcessLocale)
{
    EXPECT_DOUBLE_EQ(decimalValue(local("12{sep}5")), 12.5);
    EXPECT_DOUBLE_EQ(decimalValue("89.90"), 89.9) << "the ERP's prices carry a point";
    EXPECT_DOUBLE_EQ(currencyValue(local("1{sep}23456")), 1.2346);
    EXPECT_THROW(decimalValue("doce"), RaisedError);
    EXPECT_EQ(doubleText(175), "175");
    EXPECT_EQ(doubleText(80.91), local("80{sep}91"));
    EXPECT_EQ(doubleText(2.0 / 3), local("0{sep}666666666666667")) << "15 significant digits";
    EXPECT_EQ(doubleText(100 - (80.91 / 89.9) * 100), "10");
    EXPECT_EQ(doubleText(1e15), "1E+15");
    EXPECT_DOUBLE_EQ(roundCents(0.125), 0.12) << "halves go to the even cent";
    EXPECT_DOUBLE_EQ(roundCents(0.135), 0.14);
}

INSTANTIATE_TEST_SUITE_P(Machines, GridNumbersTest, ::testing::Values(".", ","),
                         [](const auto &info) {
                             return std::string(info.param) == "." ? "point" : "comma";
                         });

TEST(GridDatesTest, DatesTravelAsYearMonthDayAndTime)
{
    const QDateTime date = ISO8601ToDate("2024/03/14T09:05:07");
    EXPECT_EQ(date, QDateTime(QDate(2024, 3, 14), QTime(9, 5, 7)));
    EXPECT_EQ(DateToISO8601(date), "2024/03/14T09:05:07");
    EXPECT_EQ(ISO8601ToDate("2024/13/1T0:0:0"), QDateTime(QDate(2025, 1, 1), QTime(0, 0)))
        << "fields count from the start of 1900, so month 13 is January";
    EXPECT_EQ(ISO8601ToDate("2024/1/31T25:0:0"), QDateTime(QDate(2024, 2, 1), QTime(1, 0)));
    try {
        ISO8601ToDate("14/03/2024");
        ADD_FAILURE() << "a date without its five separators was read";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), -10503);
    }
}

} // namespace
