#include "platform/db/SqliteCursor.h"

#include "platform/db/SqliteBackend.h"

#include <sqlite3.h>

SqliteCursor::SqliteCursor(sqlite3 *db, sqlite3_stmt *statement,
                           std::shared_ptr<DatabaseErrors> errors)
    : m_db(db), m_statement(statement), m_errors(std::move(errors))
{
    const bool hasRows = sqlite3_column_count(m_statement) > 0;
    step();
    if (!hasRows)
        close();
}

SqliteCursor::~SqliteCursor()
{
    close();
}

bool SqliteCursor::isOpen() const
{
    return m_statement != nullptr;
}

bool SqliteCursor::eof() const
{
    return m_eof;
}

void SqliteCursor::moveNext()
{
    step();
}

int SqliteCursor::fieldCount() const
{
    return sqlite3_column_count(m_statement);
}

std::optional<std::string> SqliteCursor::field(int index) const
{
    if (sqlite3_column_type(m_statement, index) == SQLITE_NULL)
        return std::nullopt;
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, index));
    // No text for a value that is not Null means the engine ran out of memory converting it:
    // an engine error like any other, so the caller's handler reports a database failure.
    if (!text)
        reportDatabaseError(*m_errors, sqliteError(m_db));
    return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, index)));
}

void SqliteCursor::close()
{
    sqlite3_finalize(m_statement);
    m_statement = nullptr;
    m_eof = true;
}

void SqliteCursor::step()
{
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW)
        return;
    m_eof = true;
    if (result == SQLITE_DONE)
        return;
    auto error = sqliteError(m_db);
    close();
    reportDatabaseError(*m_errors, std::move(error));
}
