#include "platform/db/EmbeddedDatabase.h"

#include "platform/core/RaisedError.h"
#include "platform/db/ServerCollation.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <sqlite3.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

// The columns of the server's tables, with its widths kept by CHECKs, its identities as
// AUTOINCREMENT (never reused, as on the server) and every text column in the server's
// collation.
constexpr const char *kSchema = R"sql(
CREATE TABLE IF NOT EXISTS WITIENDAS (
    IdTienda      VARCHAR(50) COLLATE SERVER_CI NOT NULL PRIMARY KEY
                  CHECK (length(IdTienda) <= 50),
    Descrip       VARCHAR(40) COLLATE SERVER_CI CHECK (length(Descrip) <= 40),
    IDDepoVDOVEL  VARCHAR(50) COLLATE SERVER_CI NOT NULL UNIQUE
                  CHECK (length(IDDepoVDOVEL) <= 50)
);
CREATE TABLE IF NOT EXISTS WIPRODASOC (
    IdPrdAsociado INTEGER PRIMARY KEY AUTOINCREMENT,
    IdPrdDovel    VARCHAR(50) COLLATE SERVER_CI NOT NULL CHECK (length(IdPrdDovel) <= 50),
    IdPrdZorvanta VARCHAR(50) COLLATE SERVER_CI NOT NULL CHECK (length(IdPrdZorvanta) <= 50),
    Atributos     TEXT COLLATE SERVER_CI,
    FechaAsociado DATETIME
);
CREATE TABLE IF NOT EXISTS WIPRODPUBL (
    IdPrdPublicado INTEGER PRIMARY KEY AUTOINCREMENT,
    IdPrdAsociado  INTEGER NOT NULL,
    IdTienda       VARCHAR(50) COLLATE SERVER_CI NOT NULL CHECK (length(IdTienda) <= 50),
    Estado         CHAR(1) COLLATE SERVER_CI NOT NULL CHECK (length(Estado) <= 1),
    Atributos      TEXT COLLATE SERVER_CI,
    FechaPublicado DATETIME
);
CREATE TABLE IF NOT EXISTS WIPRODPEND (
    IdPrdPublicado INTEGER NOT NULL,
    IdPrdAsociado  INTEGER NOT NULL,
    IdTienda       VARCHAR(50) COLLATE SERVER_CI NOT NULL CHECK (length(IdTienda) <= 50),
    Estado         CHAR(1) COLLATE SERVER_CI NOT NULL CHECK (length(Estado) <= 1),
    Atributos      TEXT COLLATE SERVER_CI,
    FechaPublicado DATETIME,
    NumInt         INTEGER NOT NULL DEFAULT 0,
    MsgErr         TEXT COLLATE SERVER_CI,
    -- A row waiting for its first send has had no error: the pending list reads it as 0.
    Error          SMALLINT DEFAULT 0 CHECK (Error BETWEEN -32768 AND 32767),
    PRIMARY KEY (IdPrdPublicado, Estado)
);
)sql";

struct Closer
{
    void operator()(sqlite3 *db) const { sqlite3_close_v2(db); }
};

[[noreturn]] void fail(const std::string &message, const std::filesystem::path &file)
{
    raiseError(RuntimeErrorNumber::AutomationError, message + ": " + file.string());
}

bool folderIsReadOnly(const std::filesystem::path &file)
{
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    if (faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0)
        return false;
    return errno == EACCES || errno == EROFS || errno == EPERM;
}

// A path as a "file:" URI: the characters that would start or escape a URI part are encoded.
std::string fileUri(const std::filesystem::path &file)
{
    std::string uri = "file:";
    for (const char c : std::filesystem::absolute(file).string()) {
        if (c == '%')
            uri += "%25";
        else if (c == '?')
            uri += "%3f";
        else if (c == '#')
            uri += "%23";
        else
            uri += c;
    }
    return uri;
}

} // namespace

int openEmbeddedDatabase(const std::filesystem::path &file, bool readOnly, sqlite3 **db)
{
    if (!folderIsReadOnly(file)) {
        return sqlite3_open_v2(file.c_str(), db,
                               readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, nullptr);
    }
    // A write-ahead file left by a writer still holds committed rows: the engine reads through
    // it without writing. With none, only an immutable file can be read where the engine's own
    // shared-memory file cannot be made.
    std::error_code ignored;
    if (std::filesystem::exists(file.string() + "-wal", ignored))
        return sqlite3_open_v2(file.c_str(), db, SQLITE_OPEN_READONLY, nullptr);
    return sqlite3_open_v2((fileUri(file) + "?immutable=1").c_str(), db,
                           SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
}

std::filesystem::path embeddedDatabasePath(const std::string &database)
{
    if (database.empty() || database.find_first_of(std::string("/\0", 2)) != std::string::npos)
        return {};
    const char *dataDir = std::getenv("ASISTENTE_DATA_DIR");
    std::filesystem::path path = dataDir && *dataDir ? dataDir : ".";
    path /= database + ".sqlite3";
    std::error_code ignored;
    const auto absolute = std::filesystem::absolute(path, ignored);
    return absolute.empty() ? path : absolute.lexically_normal();
}

void createEmbeddedDatabase(const std::filesystem::path &file)
{
    if (!file.parent_path().empty()) {
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        if (error)
            fail(error.message(), file.parent_path());
    }
    sqlite3 *raw = nullptr;
    const int opened =
        sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, Closer> db(raw);
    if (opened != SQLITE_OK)
        fail(raw ? sqlite3_errmsg(raw) : sqlite3_errstr(opened), file);
    if (registerServerCollation(db.get()) != SQLITE_OK ||
        sqlite3_exec(db.get(), "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(sqlite3_errmsg(db.get()), file);
    const std::string script = std::string("BEGIN;") + kSchema + "COMMIT;";
    if (sqlite3_exec(db.get(), script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(sqlite3_errmsg(db.get()), file);
}
