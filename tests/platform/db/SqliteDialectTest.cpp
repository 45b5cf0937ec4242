#include "platform/db/SqliteDialect.h"

#include <gtest/gtest.h>

TEST(SqliteDialectTest, onlyTheServerFormsChangeAndQuotedTextNever)
{
    const std::pair<const char *, const char *> rows[] = {
        {"= CONVERT( DATETIME ,'2004-12-31 23:59:59',120)", "= '2004-12-31 23:59:59'"},
        {"CONVERT(datetime, '2000-2-29', 120)", "'2000-02-29 00:00:00'"},
        {"SET MsgErr = 'DELETE X WHERE @@IDENTITY'", "SET MsgErr = 'DELETE X WHERE @@IDENTITY'"},
        {"where IdTienda ='it''s @@identity'", "where IdTienda ='it''s @@identity'"},
    };
    for (const auto &[server, sqlite] : rows) {
        const auto translated = toSqliteDialect(server);
        EXPECT_EQ(translated.text, sqlite);
        EXPECT_EQ(translated.problem, "") << server;
    }
}

TEST(SqliteDialectTest, aDateThatIsNotOneOrAnotherConvertIsRefused)
{
    for (const char *server :
         {"CONVERT(datetime, '2003-2-29 0:0:0', 120)", "CONVERT(datetime, '2004-3-12 24:0:0', 120)",
          "CONVERT(datetime, '12/03/2004 8:09:00', 120)", "CONVERT(varchar, FechaPublicado, 103)"})
        EXPECT_NE(toSqliteDialect(server).problem, "") << server;
}
