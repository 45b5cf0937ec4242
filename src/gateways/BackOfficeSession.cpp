#include "gateways/BackOfficeSession.h"

#include "platform/core/RaisedError.h"

namespace {
std::function<BackOfficeSession &()> &registered()
{
    static std::function<BackOfficeSession &()> holder;
    return holder;
}
} // namespace

void setBackOfficeSession(std::function<BackOfficeSession &()> holder)
{
    registered() = std::move(holder);
}

BackOfficeSession &backOfficeSession()
{
    if (!registered())
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return registered()();
}
