#include "platform/db/Connection.h"

#include "SellerDatabaseSandbox.h"
#include "platform/core/RaisedError.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

std::string connectionString(const std::string &database = "AsistenteDemo")
{
    return "Driver={SQL Server};Server=servidor;Uid=usuario;Pwd=clave;Database=" + database;
}

// One statement of a scenario and field 0 of the first row it must give ("" for none).
struct Step
{
    Step(Sql statement, std::string result = {}) : statement(std::move(statement)), result(result)
    {
    }

    Sql statement;
    std::string result;
};

// The failure a statement must end in: the raise, and the entry it leaves.
DatabaseError failureOf(Connection &db, const Sql &statement)
{
    const auto before = db.errors().size();
    try {
        db.execute(statement);
        ADD_FAILURE() << "no failure for: " << statement.text();
    } catch (const RaisedError &e) {
        EXPECT_EQ(e.number(), RuntimeErrorNumber::AutomationError);
        EXPECT_EQ(db.errors().size(), before + 1);
        EXPECT_EQ(e.description(), db.errors().back().description);
        return db.errors().back();
    }
    return {};
}

int raisedNumber(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RaisedError &e) {
        return e.number();
    }
    return 0;
}

class ConnectionTest : public ::testing::Test
{
protected:
    void SetUp() override { db.open(connectionString(), 15); }

    std::string first(const Sql &statement) { return db.execute(statement).fieldText(0); }
    void play(const std::vector<Step> &steps)
    {
        for (const auto &step : steps) {
            auto rows = db.execute(step.statement);
            EXPECT_EQ(rows.eof() ? "" : rows.fieldText(0), step.result) << step.statement.text();
        }
    }

    SellerDatabaseSandbox data;
    Connection db;
    const SqlText store = sqlText("5");
    const SqlText date = sqlText("2004-3-12 8:9:0");
};

} // namespace

TEST_F(ConnectionTest, aMinistoreIsLinkedCheckedAndUnlinked)
{
    play({
        {Sql() << "INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) values ('" << store
               << "','" << sqlText(std::string(40, 'n')) << "','" << sqlText("DEP1") << "')"},
        // The server's comparison: trailing blanks and case do not matter.
        {Sql() << "SELECT count(*) FROM WITIENDAS where IdTienda ='" << sqlText("5 ") << "'", "1"},
        {Sql() << "SELECT count(*) FROM WITIENDAS where IDDepoVDOVEL ='" << sqlText("dep1") << "'",
         "1"},
        {Sql() << "SELECT count(*) FROM WIPRODPUBL where IdTienda ='" << store << "'", "0"},
        {Sql() << "DELETE WITIENDAS WHERE IdTienda = '" << store << "' AND IdDepoVDOVEL ='"
               << sqlText("DEP1") << "'"},
        {Sql("SELECT count(*) FROM WITIENDAS"), "0"},
    });
}

TEST_F(ConnectionTest, anAssociationGetsItsIdentityAndIsFoundByTheDuplicateSearch)
{
    const auto insert = [&](const char *dovel, const char *when) {
        return Sql() << "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, "
                        "FechaAsociado) values"
                     << "('" << sqlText(dovel) << "','" << sqlText("ZV-7") << "','"
                     << sqlText("<Properties/><VariantProperties/>") << "', CONVERT(datetime, '"
                     << sqlText(when) << "', 120) )";
    };
    play({
        {insert("P1", "2004-3-12 8:9:0")},
        {Sql("SELECT @@IDENTITY"), "1"},
        {insert("P2", "2004-10-5 18:30:7")},
        {Sql("SELECT @@IDENTITY"), "2"},
        {Sql("SELECT FechaAsociado FROM WIPRODASOC WHERE IdPrdAsociado = 2"),
         "2004-10-05 18:30:07"},
        {Sql() << "SELECT atributos FROM WIPRODASOC WHERE IdPrdDovel = '" << sqlText("p2") << "'"
               << " AND IdPrdZorvanta='" << sqlText("zv-7") << " '",
         "<Properties/><VariantProperties/>"},
        {Sql() << "SELECT count(*) FROM WIPRODPUBL where IdPrdAsociado =" << sqlNumber("2"), "0"},
        {Sql() << "DELETE WIPRODASOC WHERE IdPrdAsociado = " << sqlNumber("2")},
        {Sql("SELECT group_concat(IdPrdDovel) FROM WIPRODASOC"), "P1"},
    });
}

TEST_F(ConnectionTest, aPublicationIsCreatedModifiedAndWithdrawnInItsTables)
{
    const SqlText xml = sqlText("<Properties><Field fieldID=\"PRICE\">10.5</Field></Properties>");
    const auto clearAE = Sql("DELETE FROM WIPRODPEND WHERE IdPrdPublicado =")
                         << sqlNumber(1) << " AND (Estado = 'A' OR Estado = 'E')";
    db.begin();
    play({
        {Sql() << "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, Atributos, "
                  "FechaPublicado) values"
               << "('" << sqlText("3") << "','" << store << "', 'L', '" << xml
               << "', CONVERT(datetime, '" << date << "', 120) )"},
        {Sql("SELECT @@IDENTITY"), "1"},
        // The store id goes in without quotes here.
        {Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, "
                  "Atributos, FechaPublicado, NumInt) values"
               << "(" << sqlNumber(1) << "," << sqlNumber("3") << "," << sqlNumber("5")
               << ", 'I', '" << xml << "', CONVERT(datetime, '" << date << "', 120), 0)"},
    });
    db.commit();
    play({
        {Sql("SELECT Estado FROM WIPRODPUBL where idPrdPublicado = ") << sqlNumber(1), "L"},
        {Sql("SELECT IdTienda || Atributos FROM WIPRODPEND"), "5" + xml.value},
        {clearAE},
        {Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, "
                  "FechaPublicado, Atributos) values"
               << "(" << sqlNumber(1) << "," << sqlNumber("3") << ",'" << store
               << "', 'A', CONVERT(datetime, '" << date << "', 120),'" << xml << "' )"},
        {Sql() << "SELECT count(*) FROM WIPRODPEND where idPrdPublicado = " << sqlNumber(1)
               << " AND Estado = 'E'",
         "0"},
        {clearAE},
        // The E row leaves NumInt to the column's default.
        {Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, "
                  "FechaPublicado) values"
               << "(" << sqlNumber(1) << "," << sqlNumber("3") << ",'" << store
               << "', 'E', CONVERT(datetime, '" << sqlText("2004-3-12 10:0:0") << "', 120) )"},
        {Sql("SELECT NumInt || coalesce(Atributos, '-') FROM WIPRODPEND WHERE Estado = 'e'"), "0-"},
        {Sql("UPDATE WIPRODPEND SET Error = -8001 WHERE Estado = 'E'")},
        // The last error is found by the date the row was written with.
        {Sql() << "SELECT Error FROM WIPRODPEND WHERE IdPrdPublicado = " << sqlNumber(1)
               << " and fechapublicado = CONVERT(datetime, '" << sqlText("2004-03-12 10:00:00")
               << "', 120)",
         "-8001"},
        {Sql("DELETE FROM WIPRODPEND where idPrdPublicado = ") << sqlNumber(1)},
        {Sql("DELETE FROM WIPRODPUBL where idPrdPublicado = ") << sqlNumber(1)},
        {Sql("SELECT (SELECT count(*) FROM WIPRODPEND) + (SELECT count(*) FROM WIPRODPUBL)"), "0"},
    });
}

TEST_F(ConnectionTest, theSendRunReadsPendingRowsInDateOrderAndAppliesTheAnswers)
{
    db.execute(Sql("INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta) values ('P1', 'ZV-1')"));
    for (const auto &[pub, when] : {std::pair{1, "2004-3-12 8:0:0"}, {2, "2004-3-9 8:0:0"}}) {
        db.execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) values (1, '5', "
                       "'L')"));
        db.execute(Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                            "Estado, FechaPublicado) values ("
                         << sqlNumber(pub) << ", 1, '5', 'I', CONVERT(datetime, '" << sqlText(when)
                         << "', 120))");
    }
    const auto where = Sql(" WHERE IdPrdPublicado = ")
                       << sqlNumber(2) << " AND estado = '" << sqlText("I") << "'";
    play({
        {Sql() << "SELECT COUNT(P.IdPrdPublicado) FROM WIPRODPEND P, WIPRODASOC A WHERE "
                  "P.IdTienda = '"
               << store << "' AND P.IdPrdAsociado =  A.IdPrdAsociado",
         "2"},
        // Unpadded dates sort as dates: the 9th before the 12th.
        {Sql() << "SELECT P.IdPrdPublicado, P.FechaPublicado,  A.IdPrdDovel, P.Estado, "
                  "P.Atributos, A.Atributos, A.IdPrdZorvanta FROM WIPRODPEND P, WIPRODASOC A "
                  "WHERE P.IdTienda = '"
               << store << "' AND P.IdPrdAsociado =  A.IdPrdAsociado ORDER BY FechaPublicado",
         "2"},
        {Sql("UPDATE WIPRODPUBL SET Estado = 'K' WHERE IdPrdPublicado = ") << sqlNumber(1)},
        {Sql() << "SELECT Atributos FROM WIPRODPEND where IdPrdPublicado =" << sqlNumber(1)
               << " AND estado = 'A'"},
        {Sql("UPDATE WIPRODPUBL SET Atributos = '")
         << sqlText("<Properties/>") << "' WHERE IdPrdPublicado = " << sqlNumber(1)},
        {Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado = " << sqlNumber(1)},
        {Sql() << "UPDATE WIPRODPEND SET MsgErr = '" << sqlText("Precio no válido")
               << "', Error = " << sqlNumber("-8001") << ", NumInt = NumInt + 1" << where},
        {Sql("SELECT NumInt FROM WIPRODPEND") << where, "1"},
        {Sql("SELECT MsgErr || Error FROM WIPRODPEND") << where, "Precio no válido-8001"},
        {Sql("DELETE FROM WIPRODPEND") << where},
        {Sql("DELETE FROM WIPRODPUBL WHERE IdPrdPublicado = ") << sqlNumber(2)},
        {Sql("SELECT count(*) || group_concat(Estado || Atributos) FROM WIPRODPUBL"),
         "1K<Properties/>"},
    });
}

TEST_F(ConnectionTest, aRefusedValueFailsLikeTheEngineAndTheRollbackLeavesNothing)
{
    db.begin();
    db.execute(
        Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) values (1, '5', 'L')"));
    const auto apostrophe =
        failureOf(db, Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                               "Estado, Atributos) values (1, 1, '5', 'I', '"
                            << sqlText("<Field>O'Brien</Field>") << "')");
    EXPECT_NE(apostrophe.description.find("«<Field>O'Brien</Field>»"), std::string::npos);
    EXPECT_EQ(apostrophe.sqlState, "42000");
    db.rollback();
    EXPECT_EQ(first(Sql("SELECT count(*) FROM WIPRODPUBL")), "0");

    const auto number =
        failureOf(db, Sql() << "DELETE WIPRODASOC WHERE IdPrdAsociado = " << sqlNumber(""));
    EXPECT_NE(number.description.find("«»"), std::string::npos);
    db.clearErrors();
    EXPECT_TRUE(db.errors().empty());
}

TEST_F(ConnectionTest, anEngineFailureLeavesTheEnginesOwnWordsOnTheList)
{
    const std::pair<Sql, const char *> rows[] = {
        {Sql("SELECT count(*) FROM WIPRODX"), "no such table: WIPRODX"},
        {Sql("SELECT CONVERT(datetime, '2004-2-30', 120)"), "«2004-2-30»"},
    };
    for (const auto &[statement, words] : rows) {
        const auto entry = failureOf(db, statement);
        EXPECT_NE(entry.description.find(words), std::string::npos) << entry.description;
        EXPECT_EQ(entry.source, "SQLite");
    }
    EXPECT_THROW(db.commit(), RaisedError);
    EXPECT_NE(db.errors().back().description.find("no transaction"), std::string::npos);
}

TEST(ConnectionOpenTest, aDatabaseThatCannotBeOpenedIsAFailureWithAnEntry)
{
    SellerDatabaseSandbox data;
    const std::pair<std::string, std::string> rows[] = {
        {connectionString("Otro"),
         "unable to open database file: " + (data.dir() / "Otro.sqlite3").string()},
        {"Driver={Oracle};Server=s;Uid=u;Pwd=p;Database=Vendedor", "«Oracle»"},
    };
    for (const auto &[connectionString, words] : rows) {
        Connection db;
        EXPECT_EQ(raisedNumber([&] { db.open(connectionString, 15); }),
                  RuntimeErrorNumber::AutomationError);
        EXPECT_FALSE(db.isOpen());
        ASSERT_EQ(db.errors().size(), 1u) << connectionString;
        EXPECT_NE(db.errors()[0].description.find(words), std::string::npos)
            << db.errors()[0].description;
        EXPECT_NO_THROW(db.rollback());
    }
    EXPECT_FALSE(std::filesystem::exists(data.dir() / "Otro.sqlite3"));
}

TEST_F(ConnectionTest, fieldsAreReadOnlyWhereThereIsARow)
{
    auto rows = db.execute(Sql("SELECT NULL, 'doce', ' 12 ', 2.5"));
    EXPECT_TRUE(rows.isNull(0) && rows.fieldText(0).empty());
    EXPECT_EQ(rows.fieldNumber(2) + rows.fieldNumber(3), 14.5);
    auto other = db.execute(Sql("SELECT 1"));
    const std::pair<std::function<void()>, int> misuses[] = {
        {[&] { rows.fieldNumber(0); }, RuntimeErrorNumber::TypeMismatch},
        {[&] { rows.fieldText(4); }, RuntimeErrorNumber::SubscriptOutOfRange},
        {[&] { rows.moveNext(), rows.fieldText(0); }, RuntimeErrorNumber::InvalidCall},
        {[&] { rows.moveNext(); }, RuntimeErrorNumber::InvalidCall},
        {[&] { db.close(), other.fieldText(0); }, RuntimeErrorNumber::InvalidCall},
    };
    for (const auto &[misuse, number] : misuses)
        EXPECT_EQ(raisedNumber(misuse), number);
    EXPECT_TRUE(db.errors().empty());
}

TEST_F(ConnectionTest, anUntouchedTransactionDoesNotHoldBackAnotherConnection)
{
    db.begin();
    Connection other;
    other.open(connectionString(), 1);
    other.execute(
        Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) values (1, '5', 'L')"));
    db.commit();

    // A writer that keeps its transaction makes another one give up after its time-out.
    db.begin();
    db.execute(Sql("DELETE FROM WIPRODPUBL"));
    const auto entry = failureOf(other, Sql("DELETE FROM WIPRODPUBL"));
    EXPECT_EQ(entry.description, "database is locked");
    EXPECT_EQ(entry.sqlState, "HYT00");
    db.rollback();
    EXPECT_EQ(first(Sql("SELECT count(*) FROM WIPRODPUBL")), "1");
}
