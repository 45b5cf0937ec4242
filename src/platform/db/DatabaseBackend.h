#pragma once

#include "platform/db/DatabaseError.h"

#include <memory>
#include <string>
#include <vector>

class ConnectionString;
class RecordsetCursor;

/// One engine behind Connection. Every failure is added to the shared error list and
/// raised (reportDatabaseError); nothing fails silently.
class DatabaseBackend
{
public:
    explicit DatabaseBackend(std::shared_ptr<DatabaseErrors> errors);
    virtual ~DatabaseBackend() = default;

    DatabaseBackend(const DatabaseBackend &) = delete;
    DatabaseBackend &operator=(const DatabaseBackend &) = delete;

    virtual void open(const ConnectionString &connection, int timeoutSeconds) = 0;
    /// Runs one statement that the builder accepted. Gives its rows, or nothing for a
    /// statement without a result.
    virtual std::shared_ptr<RecordsetCursor> execute(const std::string &statement) = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    /// Does nothing when no transaction is open, so failure handlers may always call it.
    virtual void rollback() = 0;
    /// Closes the recordsets still open, drops an open transaction and lets the engine go.
    virtual void close() = 0;

protected:
    DatabaseErrors &errors() { return *m_errors; }
    const std::shared_ptr<DatabaseErrors> &sharedErrors() const { return m_errors; }
    /// Keeps track of a recordset so that close() can close it.
    std::shared_ptr<RecordsetCursor> tracked(std::shared_ptr<RecordsetCursor> cursor);
    void closeCursors();

private:
    std::shared_ptr<DatabaseErrors> m_errors;
    std::vector<std::weak_ptr<RecordsetCursor>> m_cursors;
};

/// Opens the engine that configuration names: ODBC with the driver of ASISTENTE_SQL_DRIVER
/// when it is set, the embedded SQLite database otherwise. A failure is on the list and
/// raised.
std::unique_ptr<DatabaseBackend> openDatabaseBackend(const std::string &connectionString,
                                                     int timeoutSeconds,
                                                     std::shared_ptr<DatabaseErrors> errors);
