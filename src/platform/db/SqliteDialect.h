#pragma once

#include <string>
#include <string_view>

/// A statement rewritten for an SQLite engine, or why it could not be.
struct SqliteTranslation
{
    std::string text;
    /// Empty on success; otherwise names the form that SQLite cannot run.
    std::string problem;
};

/// Rewrites the server's forms that the program's statements use and SQLite lacks:
/// "DELETE T WHERE" gains its FROM, @@IDENTITY becomes the connection's last inserted row id,
/// and CONVERT(datetime, 'y-m-d h:n:s', 120) becomes the literal 'YYYY-MM-DD HH:MM:SS'.
/// Quoted text is never looked into. Any other use of CONVERT, or a date that is not one,
/// is a problem rather than a statement SQLite would misread.
SqliteTranslation toSqliteDialect(std::string_view statement);
