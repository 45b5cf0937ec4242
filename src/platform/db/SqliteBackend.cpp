#include "platform/db/SqliteBackend.h"

#include "platform/db/ConnectionString.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"
#include "platform/db/SqliteCursor.h"
#include "platform/db/SqliteDialect.h"

#include <cctype>
#include <climits>
#include <sqlite3.h>

namespace {

constexpr const char *kSource = "SQLite";

// The SQL state a server would give for the same kind of failure, for callers that read it.
std::string sqlStateOf(int code)
{
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT:
        return "23000";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return "HYT00";
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
        return "08001";
    case SQLITE_ERROR:
        return "42000";
    default:
        return "HY000";
    }
}

bool onlyBlanks(const char *text)
{
    for (; *text; ++text) {
        if (!std::isspace(static_cast<unsigned char>(*text)) && *text != ';')
            return false;
    }
    return true;
}

} // namespace

DatabaseError sqliteError(sqlite3 *db, const std::string &detail)
{
    const int code = db ? sqlite3_extended_errcode(db) : SQLITE_NOMEM;
    std::string description = db ? sqlite3_errmsg(db) : sqlite3_errstr(SQLITE_NOMEM);
    if (!detail.empty())
        description += ": " + detail;
    return {code, std::move(description), kSource, sqlStateOf(code)};
}

SqliteBackend::SqliteBackend(std::shared_ptr<DatabaseErrors> errors)
    : DatabaseBackend(std::move(errors))
{
}

SqliteBackend::~SqliteBackend()
{
    close();
}

void SqliteBackend::open(const ConnectionString &connection, int timeoutSeconds)
{
    const std::string driver = connection.value("Driver");
    if (!connection.hasServerDriver())
        reportDatabaseError(errors(), {0,
                                       "No hay un motor para el controlador «" + driver +
                                           "»; para usarlo por ODBC, defina ASISTENTE_SQL_DRIVER",
                                       kSource, "IM002"});
    const std::string database = connection.value("Database");
    const auto file = embeddedDatabasePath(database);
    if (file.empty())
        reportDatabaseError(
            errors(),
            {0, "El nombre de base de datos «" + database + "» no es válido", kSource, "08001"});
    // Read-write without create: a database that is not there is a failure to open, as on
    // a server, never a new empty file.
    const int opened = openEmbeddedDatabase(file, false, &m_db);
    if (opened != SQLITE_OK)
        reportDatabaseError(errors(), sqliteError(m_db, file.string()));
    // A time-out of 0 waits without limit, as the server's connection time-out does.
    sqlite3_busy_timeout(m_db, timeoutSeconds > 0 && timeoutSeconds < INT_MAX / 1000
                                   ? timeoutSeconds * 1000
                                   : INT_MAX);
    if (registerServerCollation(m_db) != SQLITE_OK)
        reportDatabaseError(errors(), sqliteError(m_db, file.string()));
    // Write-ahead logging lets a reader (another connection, the ERP) and a writer work at
    // once, as the server's row locks do; it also proves the file is a database. A file opened
    // for reading only keeps its mode, and asking for it is proof enough.
    const char *journal =
        sqlite3_db_readonly(m_db, "main") == 1 ? "PRAGMA journal_mode" : "PRAGMA journal_mode=WAL";
    if (sqlite3_exec(m_db, journal, nullptr, nullptr, nullptr) != SQLITE_OK)
        reportDatabaseError(errors(), sqliteError(m_db, file.string()));
}

std::shared_ptr<RecordsetCursor> SqliteBackend::execute(const std::string &statement)
{
    const auto translation = toSqliteDialect(statement);
    if (!translation.problem.empty())
        reportDatabaseError(errors(), {0, translation.problem, kSource, "42000"});
    sqlite3_stmt *prepared = nullptr;
    const char *tail = nullptr;
    if (sqlite3_prepare_v2(m_db, translation.text.c_str(),
                           static_cast<int>(translation.text.size() + 1), &prepared,
                           &tail) != SQLITE_OK)
        reportDatabaseError(errors(), sqliteError(m_db));
    if (!prepared)
        return nullptr;
    // SQLite would run the first statement and drop the others without a word.
    if (!onlyBlanks(tail)) {
        sqlite3_finalize(prepared);
        reportDatabaseError(errors(), {SQLITE_ERROR, "Se esperaba una sola sentencia: " + statement,
                                       kSource, "42000"});
    }
    auto cursor = std::make_shared<SqliteCursor>(m_db, prepared, sharedErrors());
    if (!cursor->isOpen())
        return nullptr;
    return tracked(std::move(cursor));
}

void SqliteBackend::begin()
{
    // A deferred transaction takes its locks on first use, as the server does; taking the
    // write lock at once would block other connections that the program opens meanwhile.
    run("BEGIN");
}

void SqliteBackend::commit()
{
    run("COMMIT");
}

void SqliteBackend::rollback()
{
    if (m_db && !sqlite3_get_autocommit(m_db))
        run("ROLLBACK");
}

void SqliteBackend::close()
{
    closeCursors();
    sqlite3_close_v2(m_db);
    m_db = nullptr;
}

void SqliteBackend::run(const char *statement)
{
    if (sqlite3_exec(m_db, statement, nullptr, nullptr, nullptr) != SQLITE_OK)
        reportDatabaseError(errors(), sqliteError(m_db));
}
