#pragma once

#include "platform/db/DatabaseError.h"
#include "platform/db/RecordsetCursor.h"

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// The rows of one prepared SQLite statement. Creating it runs the statement up to its
/// first row; a statement without a result runs to its end and the cursor is closed.
class SqliteCursor : public RecordsetCursor
{
public:
    /// Takes the statement; a failure while running it is on the list and raised.
    SqliteCursor(sqlite3 *db, sqlite3_stmt *statement, std::shared_ptr<DatabaseErrors> errors);
    ~SqliteCursor() override;

    bool isOpen() const override;
    bool eof() const override;
    void moveNext() override;
    int fieldCount() const override;
    std::optional<std::string> field(int index) const override;
    void close() override;

private:
    void step();

    sqlite3 *m_db;
    sqlite3_stmt *m_statement;
    std::shared_ptr<DatabaseErrors> m_errors;
    bool m_eof = false;
};
