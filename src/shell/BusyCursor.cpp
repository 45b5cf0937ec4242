#include "shell/BusyCursor.h"

#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"

#include <limits>

std::int32_t gWaitCount = 0;
bool gWaitSuspended = false;

void BeginWait()
{
    if (gWaitCount == std::numeric_limits<std::int32_t>::max())
        raiseRuntimeError(RuntimeErrorNumber::Overflow);
    ++gWaitCount;
    if (!gWaitSuspended)
        ui().setCursor(kHourglassCursor);
}

void EndWait()
{
    if (gWaitCount > 0)
        --gWaitCount;
    if (gWaitCount == 0)
        ui().setCursor(kDefaultCursor);
}

void SuspendWait()
{
    gWaitSuspended = true;
    ui().setCursor(kDefaultCursor);
}

void ResumeWait()
{
    gWaitSuspended = false;
    if (gWaitCount > 0)
        ui().setCursor(kHourglassCursor);
}
