#include "platform/db/Sql.h"

#include <gtest/gtest.h>

TEST(SqlTest, onlyValuesThatCannotChangeTheStatementKeepItValid)
{
    struct Row
    {
        const char *what;
        Sql statement;
        std::string named; // in the problem; empty when the statement stays valid
    };
    const Row rows[] = {
        {"a name with an apostrophe", Sql() << "'" << sqlText("O'Brien") << "'", "«O'Brien»"},
        {"an empty number", Sql() << "IdPrdAsociado = " << sqlNumber(""), "«»"},
        {"a number followed by a statement", Sql() << "= " << sqlNumber("5; DELETE FROM WITIENDAS"),
         "«5; DELETE FROM WITIENDAS»"},
        {"a refused piece joined later", Sql("SELECT ") << (Sql() << sqlText("'")), "«'»"},
        {"text with blanks, quotes and markup", Sql() << sqlText("Z 9 \"<a>\" -- ;"), ""},
        {"signed and decimal numbers",
         Sql() << sqlNumber("-8005") << sqlNumber("+3") << sqlNumber("12.50") << sqlNumber(".5")
               << sqlNumber(std::int16_t{-7}),
         ""},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.statement.isValid(), row.named.empty()) << row.what;
        EXPECT_NE(row.statement.problem().find(row.named), std::string::npos)
            << row.what << ": " << row.statement.problem();
    }
}
