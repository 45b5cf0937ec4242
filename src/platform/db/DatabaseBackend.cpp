#include "platform/db/DatabaseBackend.h"

#include "platform/db/ConnectionString.h"
#include "platform/db/OdbcBackend.h"
#include "platform/db/RecordsetCursor.h"
#include "platform/db/SqliteBackend.h"

#include <algorithm>
#include <cstdlib>

DatabaseBackend::DatabaseBackend(std::shared_ptr<DatabaseErrors> errors)
    : m_errors(std::move(errors))
{
}

std::shared_ptr<RecordsetCursor> DatabaseBackend::tracked(std::shared_ptr<RecordsetCursor> cursor)
{
    std::erase_if(m_cursors, [](const auto &weak) { return weak.expired(); });
    m_cursors.push_back(cursor);
    return cursor;
}

void DatabaseBackend::closeCursors()
{
    for (const auto &weak : m_cursors) {
        if (const auto cursor = weak.lock())
            cursor->close();
    }
    m_cursors.clear();
}

std::unique_ptr<DatabaseBackend> openDatabaseBackend(const std::string &connectionString,
                                                     int timeoutSeconds,
                                                     std::shared_ptr<DatabaseErrors> errors)
{
    std::unique_ptr<DatabaseBackend> backend;
    const char *driver = std::getenv("ASISTENTE_SQL_DRIVER");
    if (driver && *driver)
        backend = std::make_unique<OdbcBackend>(driver, std::move(errors));
    else
        backend = std::make_unique<SqliteBackend>(std::move(errors));
    backend->open(ConnectionString(connectionString), timeoutSeconds);
    return backend;
}
