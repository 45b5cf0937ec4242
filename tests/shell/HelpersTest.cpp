#include "ShellTest.h"

#include "shell/BusyCursor.h"
#include "shell/ClassDebugId.h"
#include "shell/Collection.h"
#include "shell/Constants.h"
#include "shell/Operation.h"

#include <QLocale>

#include <clocale>
#include <limits>

class BusyCursorTest : public ShellTest
{
};

TEST_F(BusyCursorTest, nestedSectionsKeepTheHourglassUntilTheLastEnds)
{
    BeginWait();
    BeginWait();
    EndWait();
    EXPECT_EQ(ui->cursor(), kHourglassCursor);
    EndWait();
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
    EXPECT_EQ(gWaitCount, 0);
}

TEST_F(BusyCursorTest, aSurplusEndIsHarmlessAndStillSetsTheDefaultPointer)
{
    EndWait();
    EXPECT_EQ(gWaitCount, 0);
    EXPECT_EQ(ui->cursorHistory(), std::vector<int>{kDefaultCursor});
}

TEST_F(BusyCursorTest, aSuspendedSectionShowsTheNormalPointerUntilResumed)
{
    BeginWait();
    SuspendWait();
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
    BeginWait(); // inside the dialog: no hourglass
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
    EndWait();
    ResumeWait();
    EXPECT_EQ(ui->cursor(), kHourglassCursor);
    EndWait();
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
}

TEST_F(BusyCursorTest, resumingWithNoOpenSectionKeepsTheNormalPointer)
{
    SuspendWait();
    ResumeWait();
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
    EXPECT_FALSE(gWaitSuspended);
}

TEST_F(BusyCursorTest, theCountOverflowsAtItsUpperLimit)
{
    gWaitCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW(BeginWait(), RaisedError);
    gWaitCount = 0;
}

class ConversionTest : public ShellTest
{
};

TEST_F(ConversionTest, datesAreWrittenWithoutPadding)
{
    EXPECT_EQ(convertToString(QDateTime(QDate(2004, 3, 12), QTime(8, 9, 0))), "2004-3-12 8:9:0");
    EXPECT_EQ(convertToString(QDateTime(QDate(2026, 10, 5), QTime(23, 59, 7))),
              "2026-10-5 23:59:7");
}

TEST_F(ConversionTest, theDatabaseFormReadsBack)
{
    EXPECT_EQ(convertToDate("2004-3-12 8:9:0"), QDateTime(QDate(2004, 3, 12), QTime(8, 9, 0)));
}

TEST_F(ConversionTest, anUnreadableDateIsReportedAndGivesTheZeroDate)
{
    EXPECT_EQ(convertToDate("mañana temprano"),
              QDateTime(QDate(1899, 12, 30), QTime(0, 0)));
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: 13 (Constants:convertToDate)"), std::string::npos);
}

TEST(DecimalSeparator, followsTheLocale)
{
    EXPECT_EQ(decimalSeparatorOf(QLocale(QLocale::Spanish, QLocale::Spain)), ",");
    EXPECT_EQ(decimalSeparatorOf(QLocale(QLocale::English, QLocale::UnitedStates)), ".");
    EXPECT_EQ(gDecimalSeparator.size(), 1u);
}

// The sellers' machines write 12,5: numbers that come off the wire must read the same there.
class WireNumberTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        m_previous = std::setlocale(LC_NUMERIC, nullptr);
        if (!std::setlocale(LC_NUMERIC, "es_ES.UTF-8"))
            GTEST_SKIP() << "es_ES.UTF-8 is not installed (scripts/install-deps makes it)";
    }
    void TearDown() override
    {
        std::setlocale(LC_NUMERIC, m_previous.c_str());
        ShellTest::TearDown();
    }

private:
    std::string m_previous;
};

TEST_F(WireNumberTest, aLenientReadTakesTheLeadingNumberWithAPoint)
{
    const std::pair<const char *, std::int32_t> rows[] = {
        {"12.7", 13},  {"2.5", 2},   {"3.5", 4},   {"  -2.5", -2}, {"+7", 7},
        {"12abc", 12}, {"5,9", 5},   {"abc", 0},   {"", 0},        {"-", 0},
        {".", 0},      {".6", 1},    {"12.", 12},
    };
    for (const auto &[text, number] : rows)
        EXPECT_EQ(leadingNumber(text), number) << "«" << text << "»";
}

TEST_F(WireNumberTest, aWholeNumberIsTheWholeTextWithAPoint)
{
    const std::pair<const char *, std::int32_t> numbers[] = {
        {"5.0", 5}, {" 42 ", 42}, {"2.5", 2}, {"-7", -7}, {"1e3", 1000}};
    for (const auto &[text, number] : numbers)
        EXPECT_EQ(wholeNumber(text), number) << "«" << text << "»";

    const std::pair<const char *, std::int32_t> failures[] = {
        {"5,0", RuntimeErrorNumber::TypeMismatch},   {"", RuntimeErrorNumber::TypeMismatch},
        {"cinco", RuntimeErrorNumber::TypeMismatch}, {"5 0", RuntimeErrorNumber::TypeMismatch},
        {"1e400", RuntimeErrorNumber::TypeMismatch}, {"3000000000", RuntimeErrorNumber::Overflow},
    };
    for (const auto &[text, number] : failures) {
        try {
            wholeNumber(text);
            ADD_FAILURE() << "«" << text << "» read as a number";
        } catch (const RaisedError &error) {
            EXPECT_EQ(error.number(), number) << "«" << text << "»";
        }
    }
}

TEST(ClassDebugId, everyObjectGetsTheNextSerial)
{
    const Operation first;
    const OperationResult second;
    EXPECT_EQ(second.ClassDebugID(), first.ClassDebugID() + 1);
    EXPECT_EQ(gNextClassDebugID, second.ClassDebugID());
    EXPECT_EQ(first.operationType(), "");
}

namespace {
std::int32_t errorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RaisedError &error) {
        return error.number();
    }
    return 0;
}
} // namespace

TEST(CollectionTest, keysDifferingOnlyInCaseAreTheSameKey)
{
    Collection<int> items;
    items.add(1, std::string("MT-100"));
    EXPECT_EQ(items.item("mt-100"), 1);
    EXPECT_EQ(errorOf([&] { items.add(2, std::string("Mt-100")); }), 457);
    EXPECT_EQ(items.count(), 1);
}

TEST(CollectionTest, missingKeysAndIndexesGiveTheRuntimeNumbers)
{
    Collection<int> items;
    items.add(10, std::string("a"));
    items.add(20); // no key
    EXPECT_EQ(errorOf([&] { items.item("b"); }), 5);
    EXPECT_EQ(errorOf([&] { items.item(0); }), 9);
    EXPECT_EQ(errorOf([&] { items.item(3); }), 9);
    EXPECT_EQ(errorOf([&] { items.remove(std::string("zz")); }), 5);
    EXPECT_EQ(items.find("b"), nullptr);
    EXPECT_EQ(items.item(2), 20);
}

TEST(CollectionTest, orderIsKeptThroughInsertionsAndRemovals)
{
    Collection<std::string> items;
    items.add("b", std::string("kb"));
    items.addBefore("a", std::string("ka"), 1);
    items.addAfter("c", std::string("kc"), std::string("kb"));
    items.add("d");
    items.remove(std::string("KB"));
    std::vector<std::string> order;
    for (const auto &item : items)
        order.push_back(item);
    EXPECT_EQ(order, (std::vector<std::string>{"a", "c", "d"}));
    EXPECT_EQ(items.item("kc"), "c");
    EXPECT_EQ(items.item(2), "c");
    items.add("b2", std::string("kb")); // the removed key is free again
    EXPECT_EQ(items.item(4), "b2");
}
