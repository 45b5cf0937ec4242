#pragma once

#include "platform/db/DatabaseBackend.h"

#include <sql.h>

/// A database reached through the ODBC driver manager, for a real server. The connection
/// string goes to the driver named by configuration in place of "SQL Server", and the
/// statements go as they are, unless the driver turns out to run SQLite (the test driver),
/// which gets the embedded engine's translation. Diagnostic records become error entries;
/// those of a successful connect (informational) are kept on the list too.
class OdbcBackend : public DatabaseBackend
{
public:
    OdbcBackend(std::string driver, std::shared_ptr<DatabaseErrors> errors);
    ~OdbcBackend() override;

    void open(const ConnectionString &connection, int timeoutSeconds) override;
    std::shared_ptr<RecordsetCursor> execute(const std::string &statement) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    void close() override;

private:
    void endTransaction(SQLSMALLINT completion);
    void check(SQLRETURN result, SQLSMALLINT handleType, SQLHANDLE handle);

    std::string m_driver;
    SQLHENV m_environment = SQL_NULL_HENV;
    SQLHDBC m_connection = SQL_NULL_HDBC;
    bool m_connected = false;
    bool m_inTransaction = false;
    bool m_sqliteDialect = false;
};

/// The diagnostic records of the handle as error entries, source naming the driver.
DatabaseErrors odbcDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle, const std::string &source);
