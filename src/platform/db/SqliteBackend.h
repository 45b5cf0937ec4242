#pragma once

#include "platform/db/DatabaseBackend.h"

struct sqlite3;

/// The embedded engine: the connection string's database name is the file
/// <data dir>/<Database>.sqlite3, which must already exist. The server's forms that the
/// program writes are translated (SqliteDialect), text compares with the server's collation,
/// and the connection time-out becomes the engine's busy time-out.
class SqliteBackend : public DatabaseBackend
{
public:
    explicit SqliteBackend(std::shared_ptr<DatabaseErrors> errors);
    ~SqliteBackend() override;

    void open(const ConnectionString &connection, int timeoutSeconds) override;
    std::shared_ptr<RecordsetCursor> execute(const std::string &statement) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    void close() override;

private:
    void run(const char *statement);

    sqlite3 *m_db = nullptr;
};

/// The entry for the connection's last failure, in SQLite's words; detail, when given,
/// follows the engine's message.
DatabaseError sqliteError(sqlite3 *db, const std::string &detail = {});
