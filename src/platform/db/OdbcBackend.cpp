#include "platform/db/OdbcBackend.h"

#include "platform/db/ConnectionString.h"
#include "platform/db/OdbcCursor.h"
#include "platform/db/SqliteDialect.h"

#include <algorithm>
#include <cctype>
#include <sqlext.h>

namespace {

std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

DatabaseErrors odbcDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle, const std::string &source)
{
    DatabaseErrors entries;
    SQLCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLCHAR message[SQL_MAX_MESSAGE_LENGTH + 1] = {};
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1; SQL_SUCCEEDED(SQLGetDiagRec(
             handleType, handle, record, state, &native, message, sizeof message, &length));
         ++record)
        entries.push_back({native, reinterpret_cast<const char *>(message), source,
                           reinterpret_cast<const char *>(state)});
    return entries;
}

OdbcBackend::OdbcBackend(std::string driver, std::shared_ptr<DatabaseErrors> errors)
    : DatabaseBackend(std::move(errors)), m_driver(std::move(driver))
{
}

OdbcBackend::~OdbcBackend()
{
    close();
}

void OdbcBackend::open(const ConnectionString &connection, int timeoutSeconds)
{
    check(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment), SQL_HANDLE_ENV,
          m_environment);
    check(SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION,
                        reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
          SQL_HANDLE_ENV, m_environment);
    check(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection), SQL_HANDLE_ENV,
          m_environment);
    check(SQLSetConnectAttr(
              m_connection, SQL_ATTR_LOGIN_TIMEOUT,
              reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(std::max(timeoutSeconds, 0))), 0),
          SQL_HANDLE_DBC, m_connection);

    ConnectionString target = connection;
    if (target.hasServerDriver())
        target.set("Driver", m_driver);
    const std::string text = target.text();
    const SQLRETURN connected = SQLDriverConnect(
        m_connection, nullptr, reinterpret_cast<SQLCHAR *>(const_cast<char *>(text.c_str())),
        SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    check(connected, SQL_HANDLE_DBC, m_connection);
    m_connected = true;
    if (connected == SQL_SUCCESS_WITH_INFO) {
        auto notes = odbcDiagnostics(SQL_HANDLE_DBC, m_connection, m_driver);
        errors().insert(errors().end(), notes.begin(), notes.end());
    }

    SQLCHAR dbms[256] = {};
    SQLSMALLINT length = 0;
    check(SQLGetInfo(m_connection, SQL_DBMS_NAME, dbms, sizeof dbms, &length), SQL_HANDLE_DBC,
          m_connection);
    m_sqliteDialect =
        lowered(reinterpret_cast<const char *>(dbms)).find("sqlite") != std::string::npos;
}

std::shared_ptr<RecordsetCursor> OdbcBackend::execute(const std::string &statement)
{
    std::string text = statement;
    if (m_sqliteDialect) {
        auto translation = toSqliteDialect(statement);
        if (!translation.problem.empty())
            reportDatabaseError(errors(), {0, translation.problem, m_driver, "42000"});
        text = std::move(translation.text);
    }
    SQLHSTMT handle = SQL_NULL_HSTMT;
    check(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &handle), SQL_HANDLE_DBC, m_connection);
    auto cursor = std::make_shared<OdbcCursor>(handle, m_driver, sharedErrors());
    cursor->run(text);
    if (!cursor->isOpen())
        return nullptr;
    return tracked(std::move(cursor));
}

void OdbcBackend::begin()
{
    if (m_inTransaction)
        reportDatabaseError(errors(), {0, "Ya hay una transacción abierta", m_driver, "25000"});
    check(SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT,
                            reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0),
          SQL_HANDLE_DBC, m_connection);
    m_inTransaction = true;
}

void OdbcBackend::commit()
{
    if (!m_inTransaction)
        reportDatabaseError(errors(), {0, "No hay una transacción abierta", m_driver, "25000"});
    endTransaction(SQL_COMMIT);
}

void OdbcBackend::rollback()
{
    if (m_inTransaction)
        endTransaction(SQL_ROLLBACK);
}

void OdbcBackend::close()
{
    closeCursors();
    if (m_connected) {
        if (m_inTransaction)
            SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_ROLLBACK);
        SQLDisconnect(m_connection);
    }
    if (m_connection != SQL_NULL_HDBC)
        SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    if (m_environment != SQL_NULL_HENV)
        SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    m_connection = SQL_NULL_HDBC;
    m_environment = SQL_NULL_HENV;
    m_connected = false;
    m_inTransaction = false;
}

void OdbcBackend::endTransaction(SQLSMALLINT completion)
{
    // A failed end leaves the transaction open, for the failure handler's rollback.
    check(SQLEndTran(SQL_HANDLE_DBC, m_connection, completion), SQL_HANDLE_DBC, m_connection);
    m_inTransaction = false;
    check(SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT,
                            reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0),
          SQL_HANDLE_DBC, m_connection);
}

void OdbcBackend::check(SQLRETURN result, SQLSMALLINT handleType, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(result))
        return;
    auto entries = handle ? odbcDiagnostics(handleType, handle, m_driver) : DatabaseErrors();
    if (entries.empty())
        entries.push_back(
            {result, "El administrador ODBC falló sin dar un diagnóstico", m_driver, "HY000"});
    reportDatabaseErrors(errors(), std::move(entries));
}
