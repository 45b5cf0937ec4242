#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One entry of a connection's error list: what the engine (or the statement check in front
/// of it) said about a failed operation, or an informational message left by opening.
struct DatabaseError
{
    /// The engine's own code: SQLite's extended result code, the ODBC native error;
    /// 0 for a statement refused before it reached the engine.
    std::int32_t number = 0;
    std::string description;
    /// Who said it: "SQLite", the ODBC driver's name, or "Sql" for a refused statement.
    std::string source;
    /// Five-character SQL state; "01..." for informational entries.
    std::string sqlState;
};

using DatabaseErrors = std::vector<DatabaseError>;

/// Adds the entry to the list and raises it as a platform failure (AutomationError) whose
/// description is the entry's description.
[[noreturn]] void reportDatabaseError(DatabaseErrors &errors, DatabaseError entry);

/// The same for a failure the engine described in several entries, added in order; the
/// raised description is the first one's.
[[noreturn]] void reportDatabaseErrors(DatabaseErrors &errors, DatabaseErrors entries);
