#include "platform/db/OdbcCursor.h"

#include "platform/db/OdbcBackend.h"

#include <sqlext.h>

OdbcCursor::OdbcCursor(SQLHSTMT statement, std::string source,
                       std::shared_ptr<DatabaseErrors> errors)
    : m_statement(statement), m_source(std::move(source)), m_errors(std::move(errors))
{
}

OdbcCursor::~OdbcCursor()
{
    close();
}

void OdbcCursor::run(const std::string &text)
{
    const SQLRETURN executed = SQLExecDirect(
        m_statement, reinterpret_cast<SQLCHAR *>(const_cast<char *>(text.c_str())), SQL_NTS);
    // An UPDATE or DELETE that touches no row answers "no data"; that is no failure.
    if (executed != SQL_NO_DATA)
        check(executed);
    SQLSMALLINT columns = 0;
    check(SQLNumResultCols(m_statement, &columns));
    m_columns = columns;
    if (m_columns == 0)
        close();
    else
        fetch();
}

bool OdbcCursor::isOpen() const
{
    return m_statement != SQL_NULL_HSTMT;
}

bool OdbcCursor::eof() const
{
    return m_eof;
}

void OdbcCursor::moveNext()
{
    fetch();
}

int OdbcCursor::fieldCount() const
{
    return m_columns;
}

std::optional<std::string> OdbcCursor::field(int index) const
{
    return m_row.at(static_cast<std::size_t>(index));
}

void OdbcCursor::close()
{
    if (m_statement != SQL_NULL_HSTMT)
        SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
    m_statement = SQL_NULL_HSTMT;
    m_row.clear();
    m_eof = true;
}

void OdbcCursor::fetch()
{
    const SQLRETURN fetched = SQLFetch(m_statement);
    if (fetched == SQL_NO_DATA) {
        m_eof = true;
        m_row.clear();
        return;
    }
    check(fetched);
    m_row.clear();
    for (int column = 1; column <= m_columns; ++column)
        m_row.push_back(readField(static_cast<SQLUSMALLINT>(column)));
}

std::optional<std::string> OdbcCursor::readField(SQLUSMALLINT column)
{
    std::string value;
    char buffer[1024];
    for (;;) {
        SQLLEN indicator = 0;
        const SQLRETURN read =
            SQLGetData(m_statement, column, SQL_C_CHAR, buffer, sizeof buffer, &indicator);
        if (read == SQL_NO_DATA)
            break;
        check(read);
        if (indicator == SQL_NULL_DATA)
            return std::nullopt;
        // A long value comes in pieces; each but the last fills the buffer but for its NUL.
        const bool whole = indicator != SQL_NO_TOTAL && indicator < SQLLEN(sizeof buffer);
        value.append(buffer, whole ? static_cast<std::size_t>(indicator) : sizeof buffer - 1);
        if (read == SQL_SUCCESS)
            break;
    }
    return value;
}

void OdbcCursor::check(SQLRETURN result)
{
    if (SQL_SUCCEEDED(result))
        return;
    auto entries = odbcDiagnostics(SQL_HANDLE_STMT, m_statement, m_source);
    if (entries.empty())
        entries.push_back(
            {result, "El controlador ODBC falló sin dar un diagnóstico", m_source, "HY000"});
    close();
    reportDatabaseErrors(*m_errors, std::move(entries));
}
