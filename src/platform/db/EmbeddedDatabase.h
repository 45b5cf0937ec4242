#pragma once

#include <filesystem>
#include <string>

struct sqlite3;

/// The file in which the embedded engine keeps the database of that name:
/// <data dir>/<database>.sqlite3, the data dir being ASISTENTE_DATA_DIR when set and the
/// current directory otherwise. Gives an empty path for a name that cannot be a file name
/// (empty, or holding '/' or NUL).
std::filesystem::path embeddedDatabasePath(const std::string &database);

/// Makes the embedded database in that file, with its folder, where they are missing: the
/// four tables of the seller's database, each created only if absent, so running it again
/// changes nothing. Raises AutomationError with the engine's message when it cannot.
void createEmbeddedDatabase(const std::filesystem::path &file);

/// Opens an existing embedded database file as sqlite3_open_v2 would, read-write or, with
/// `readOnly`, for reading only, and gives the engine's result code; `*db` is set even on
/// failure, for its message. In a folder this process cannot write, where the engine could not
/// make its write-ahead files, the file is opened for reading only (reading through a
/// write-ahead file left beside it, or else as a file nobody changes), so reading still works
/// and every write fails with the engine's "readonly database" message.
int openEmbeddedDatabase(const std::filesystem::path &file, bool readOnly, sqlite3 **db);
