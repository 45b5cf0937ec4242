#include "shell/ClassDebugId.h"

#include "platform/core/RaisedError.h"

#include <limits>

std::int32_t gNextClassDebugID = 0;

std::int32_t GetNextClassDebugID()
{
    if (gNextClassDebugID == std::numeric_limits<std::int32_t>::max())
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    return ++gNextClassDebugID;
}
