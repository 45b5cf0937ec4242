#include "shell/ErrorHandling.h"

#include "shell/Logger.h"

#include <new>

namespace {
CurrentError currentError;
}

const CurrentError &Err()
{
    return currentError;
}

void setCurrentError(const RaisedError &error)
{
    currentError = {error.number(), error.source(), error.description()};
}

void rewriteCurrentError(std::int32_t number, std::string source, std::string description)
{
    currentError = {number, std::move(source), std::move(description)};
}

RaisedError toRaisedError(std::exception_ptr caught)
{
    try {
        std::rethrow_exception(caught);
    } catch (const RaisedError &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return RaisedError(RuntimeErrorNumber::OutOfMemory,
                           runtimeErrorText(RuntimeErrorNumber::OutOfMemory));
    } catch (const std::exception &error) {
        return RaisedError(RuntimeErrorNumber::InvalidCall, error.what());
    } catch (...) {
        return RaisedError(RuntimeErrorNumber::InvalidCall,
                           runtimeErrorText(RuntimeErrorNumber::InvalidCall));
    }
}

void HandleError(std::int32_t, const std::string &source)
{
    if (currentError.source == kDefaultErrorSource)
        currentError.source = source;
    gLogger.ProcessError();
}

void reportCurrentError()
{
    gLogger.ProcessError();
}

void reportEscapedError(const RaisedError &error) noexcept
{
    try {
        setCurrentError(error);
        gLogger.closeApplicationAfterUnloggedError();
    } catch (...) {
        // Nothing is left to report through; the windows are closed as far as they would go.
    }
}
