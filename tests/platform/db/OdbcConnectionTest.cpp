#include "SellerDatabaseSandbox.h"
#include "platform/core/RaisedError.h"
#include "platform/db/Connection.h"

#include <gtest/gtest.h>

namespace {

// The SQLite driver stands in for a server: the ODBC path runs for real, the driver named by
// its library so that nothing needs registering.
constexpr const char *kDriver = "/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so";

class OdbcConnectionTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(kDriver))
            GTEST_SKIP() << "no SQLite ODBC driver at " << kDriver;
        setenv("ASISTENTE_SQL_DRIVER", kDriver, 1);
        db.open(connectionString, 15);
        db.execute(Sql("CREATE TABLE WIPRODASOC (IdPrdAsociado INTEGER PRIMARY KEY "
                       "AUTOINCREMENT, IdPrdDovel VARCHAR(50), FechaAsociado DATETIME)"));
    }
    void TearDown() override { unsetenv("ASISTENTE_SQL_DRIVER"); }

    std::string count() { return db.execute(Sql("SELECT count(*) FROM WIPRODASOC")).fieldText(0); }

    SellerDatabaseSandbox data;
    const std::string connectionString =
        "Driver={SQL Server};Server=servidor;Uid=usuario;Pwd=clave;Database=" +
        (data.dir() / "odbc.db").string();
    Connection db;
};

} // namespace

TEST_F(OdbcConnectionTest, statementsRowsAndTransactionsGoThroughTheDriver)
{
    for (const char *dovel : {"P1", "P2"}) {
        db.execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdDovel, FechaAsociado) values('"
                         << sqlText(dovel) << "', CONVERT(datetime, '" << sqlText("2004-3-12 8:9:0")
                         << "', 120) )");
    }
    EXPECT_EQ(db.execute(Sql("SELECT @@IDENTITY")).fieldText(0), "2");
    std::string read;
    for (auto rows = db.execute(Sql("SELECT IdPrdDovel, FechaAsociado, NULL FROM WIPRODASOC"));
         !rows.eof(); rows.moveNext())
        read += rows.fieldText(0) + " " + rows.fieldText(1) + (rows.isNull(2) ? ";" : "?");
    EXPECT_EQ(read, "P1 2004-03-12 08:09:00;P2 2004-03-12 08:09:00;");

    db.begin();
    db.execute(Sql() << "DELETE WIPRODASOC WHERE IdPrdAsociado = " << sqlNumber(1));
    db.rollback();
    EXPECT_EQ(count(), "2");
    db.begin();
    db.execute(Sql() << "DELETE WIPRODASOC WHERE IdPrdAsociado = " << sqlNumber(1));
    db.commit();
    db.close();
    db.open(connectionString, 15);
    EXPECT_EQ(count(), "1");
}

TEST_F(OdbcConnectionTest, theDriversDiagnosticsReachTheErrorList)
{
    EXPECT_THROW(db.execute(Sql("SELECT count(*) FROM WIPRODX")), RaisedError);
    ASSERT_EQ(db.errors().size(), 1u);
    EXPECT_NE(db.errors()[0].description.find("no such table: WIPRODX"), std::string::npos)
        << db.errors()[0].description;
    EXPECT_EQ(db.errors()[0].source, kDriver);
    EXPECT_EQ(db.errors()[0].sqlState.size(), 5u);

    setenv("ASISTENTE_SQL_DRIVER", "/nonexistent/libnothing.so", 1);
    Connection nowhere;
    EXPECT_THROW(nowhere.open(connectionString, 15), RaisedError);
    EXPECT_FALSE(nowhere.isOpen());
    ASSERT_FALSE(nowhere.errors().empty());
    EXPECT_NE(nowhere.errors()[0].description.find("libnothing.so"), std::string::npos);
}
