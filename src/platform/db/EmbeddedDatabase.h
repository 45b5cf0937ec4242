#pragma once

#include <filesystem>
#include <string>

/// The file in which the embedded engine keeps the database of that name:
/// <data dir>/<database>.sqlite3, the data dir being ASISTENTE_DATA_DIR when set and the
/// current directory otherwise. Gives an empty path for a name that cannot be a file name
/// (empty, or holding '/' or NUL).
std::filesystem::path embeddedDatabasePath(const std::string &database);

/// Makes the embedded database in that file, with its folder, where they are missing: the
/// four tables of the seller's database, each created only if absent, so running it again
/// changes nothing. Raises AutomationError with the engine's message when it cannot.
void createEmbeddedDatabase(const std::filesystem::path &file);
