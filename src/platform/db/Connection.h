#pragma once

#include "platform/db/DatabaseError.h"
#include "platform/db/Recordset.h"
#include "platform/db/Sql.h"

#include <memory>
#include <string>

class DatabaseBackend;

/// A connection to the seller's database, opened with the program's connection string
/// ("Driver={SQL Server};Server=...;Uid=...;Pwd=...;Database=..."). Which engine answers is
/// configuration, never the caller's choice: the embedded SQLite file of that database name
/// by default, an ODBC driver when ASISTENTE_SQL_DRIVER names one.
///
/// Every failure of the engine, and every statement refused before it reaches the engine,
/// adds an entry to errors() and raises AutomationError with the engine's message. The
/// list stays until clearErrors() or the next open(), so a failure handler can read it
/// after the raise. Using a closed connection (execute, begin, commit) raises 5.
class Connection
{
public:
    Connection();
    /// Closes the connection; an open transaction is rolled back.
    ~Connection();

    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens the database; the time-out bounds the wait for a busy database or a server.
    /// Starts a new error list; opening may leave informational entries on it.
    void open(const std::string &connectionString, int timeoutSeconds);
    bool isOpen() const;
    /// Runs one statement and gives its rows; INSERT, UPDATE and DELETE give a closed
    /// recordset. A refused value or an engine failure writes nothing.
    Recordset execute(const Sql &statement);
    void begin();
    void commit();
    /// Undoes the open transaction; does nothing when none is open or the connection is
    /// closed, so a failure handler may always call it.
    void rollback();
    /// Closes the recordsets still open and the connection; rolls back an open transaction.
    /// Closing a closed connection does nothing.
    void close();

    const DatabaseErrors &errors() const { return *m_errors; }
    void clearErrors();

private:
    DatabaseBackend &openBackend();

    std::shared_ptr<DatabaseErrors> m_errors;
    std::unique_ptr<DatabaseBackend> m_backend;
};
