// One single-row INSERT, as the program writes an association, through Connection and the
// statement builder, against the same INSERT through SQLite's own API on a connection set up
// alike (write-ahead log, busy time-out, the server collation). Argument 0 commits each row
// by itself (what the program does); 1 keeps one transaction open, which takes the disk out
// of the figure and leaves the layer's own cost.

#include "SellerDatabaseSandbox.h"
#include "platform/db/Connection.h"
#include "platform/db/ServerCollation.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <string>

namespace {

void builderInsert(benchmark::State &state)
{
    SellerDatabaseSandbox data;
    Connection db;
    db.open(SellerDatabaseSandbox::kConnectionString, 15);
    if (state.range(0))
        db.begin();
    const std::string dovel = "PRD-1042", zorvanta = "ZV-88310";
    const std::string attributes = "<Properties/><VariantProperties><Field fieldID=\"COLOR\">"
                                   "<![CDATA[Rojo]]></Field></VariantProperties>";
    for (auto _ : state) {
        db.execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, "
                            "FechaAsociado) values"
                         << "('" << sqlText(dovel) << "','" << sqlText(zorvanta) << "','"
                         << sqlText(attributes) << "', CONVERT(datetime, '"
                         << sqlText("2004-3-12 8:9:0") << "', 120) )");
    }
    if (state.range(0))
        db.commit();
}

void rawInsert(benchmark::State &state)
{
    SellerDatabaseSandbox data;
    sqlite3 *db = nullptr;
    sqlite3_open_v2(embeddedDatabasePath("AsistenteDemo").c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_busy_timeout(db, 15000);
    registerServerCollation(db);
    sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    if (state.range(0))
        sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    const std::string statement =
        "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, FechaAsociado) "
        "values('PRD-1042','ZV-88310','<Properties/><VariantProperties><Field "
        "fieldID=\"COLOR\"><![CDATA[Rojo]]></Field></VariantProperties>', "
        "'2004-03-12 08:09:00' )";
    for (auto _ : state) {
        sqlite3_stmt *insert = nullptr;
        sqlite3_prepare_v2(db, statement.c_str(), static_cast<int>(statement.size() + 1), &insert,
                           nullptr);
        if (sqlite3_step(insert) != SQLITE_DONE)
            state.SkipWithError(sqlite3_errmsg(db));
        sqlite3_finalize(insert);
    }
    if (state.range(0))
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

} // namespace

BENCHMARK(builderInsert)->ArgName("inTransaction")->Arg(0)->Arg(1);
BENCHMARK(rawInsert)->ArgName("inTransaction")->Arg(0)->Arg(1);
