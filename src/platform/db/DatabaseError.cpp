#include "platform/db/DatabaseError.h"

#include "platform/core/RaisedError.h"

void reportDatabaseError(DatabaseErrors &errors, DatabaseError entry)
{
    reportDatabaseErrors(errors, {std::move(entry)});
}

void reportDatabaseErrors(DatabaseErrors &errors, DatabaseErrors entries)
{
    std::string description = entries.empty() ? std::string() : entries.front().description;
    errors.insert(errors.end(), std::make_move_iterator(entries.begin()),
                  std::make_move_iterator(entries.end()));
    raiseError(RuntimeErrorNumber::AutomationError, std::move(description));
}
