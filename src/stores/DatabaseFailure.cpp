#include "stores/DatabaseFailure.h"

#include "platform/db/Connection.h"
#include "shell/ErrorHandling.h"

#include <algorithm>

namespace {

constexpr std::int32_t kDatabaseFailure = -11000;

bool isInformational(const DatabaseError &entry)
{
    return entry.sqlState.rfind("01", 0) == 0;
}

} // namespace

void applyDatabaseFailureRule(Connection &connection, const std::string &source)
{
    const DatabaseErrors &errors = connection.errors();
    const auto first = std::find_if_not(errors.begin(), errors.end(), isInformational);
    if (first == errors.end())
        return;
    rewriteCurrentError(kDatabaseFailure, source,
                        "Error en la base de datos " + first->description);
    connection.close();
}
