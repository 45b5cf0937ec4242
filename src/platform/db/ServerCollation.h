#pragma once

struct sqlite3;

/// Name of the collation that every text column of the embedded database uses.
inline constexpr const char *kServerCollation = "SERVER_CI";

/// Registers on the connection the collation that compares text as the seller's server does
/// by default: letters without regard to case (ASCII and Latin-1), accents significant,
/// trailing blanks ignored, so 'x ' = 'X'. Every program that opens the embedded database
/// must call it before touching a table. Returns SQLite's result code (SQLITE_OK on success).
int registerServerCollation(sqlite3 *db);

/// The collation's comparison of two UTF-8 texts: negative, zero or positive.
int compareServerText(const char *a, int aLength, const char *b, int bLength);
