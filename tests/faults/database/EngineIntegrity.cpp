#include "EngineIntegrity.h"

#include "platform/db/EmbeddedDatabase.h"
#include "platform/db/ServerCollation.h"

#include <sqlite3.h>

std::string engineIntegrity(const std::string &database)
{
    sqlite3 *db = nullptr;
    std::string answer;
    const std::string file = embeddedDatabasePath(database).string();
    // The indexes are ordered by the server's collation: the check needs it to read them.
    if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
        registerServerCollation(db) == SQLITE_OK) {
        sqlite3_exec(
            db, "PRAGMA integrity_check",
            [](void *out, int, char **values, char **) {
                *static_cast<std::string *>(out) += values[0] ? values[0] : "NULL";
                return 0;
            },
            &answer, nullptr);
    }
    if (answer.empty())
        answer = sqlite3_errmsg(db);
    sqlite3_close(db);
    return answer;
}
