#pragma once

#include "platform/db/DatabaseError.h"
#include "platform/db/RecordsetCursor.h"

#include <memory>
#include <sql.h>
#include <vector>

/// The rows of one ODBC statement, each row read whole as text when the cursor reaches it.
class OdbcCursor : public RecordsetCursor
{
public:
    /// Takes the statement handle; source names the driver in error entries.
    OdbcCursor(SQLHSTMT statement, std::string source, std::shared_ptr<DatabaseErrors> errors);
    ~OdbcCursor() override;

    /// Runs the statement and reads its first row. A statement without a result leaves the
    /// cursor closed; a failure closes it, and is on the list and raised.
    void run(const std::string &text);

    bool isOpen() const override;
    bool eof() const override;
    void moveNext() override;
    int fieldCount() const override;
    std::optional<std::string> field(int index) const override;
    void close() override;

private:
    void fetch();
    std::optional<std::string> readField(SQLUSMALLINT column);
    void check(SQLRETURN result);

    SQLHSTMT m_statement;
    std::string m_source;
    std::shared_ptr<DatabaseErrors> m_errors;
    std::vector<std::optional<std::string>> m_row;
    int m_columns = 0;
    bool m_eof = false;
};
