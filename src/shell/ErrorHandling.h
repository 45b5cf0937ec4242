#pragma once

#include "platform/core/RaisedError.h"

#include <cstdint>
#include <exception>
#include <string>
#include <type_traits>

/// The error in flight, as the last handler saw it.
struct CurrentError
{
    std::int32_t number = 0;
    std::string source;
    std::string description;
};

const CurrentError &Err();
void setCurrentError(const RaisedError &error);
/// Lets a handler rewrite the error before it is reported (the database rule turns an engine
/// failure into -11000 with its own source and text).
void rewriteCurrentError(std::int32_t number, std::string source, std::string description);

/// The error behind an exception of any kind: ours as it is, a failed allocation as the
/// runtime's "out of memory", anything else as an invalid call with its message.
RaisedError toRaisedError(std::exception_ptr caught);

/// Names the current error after the procedure that caught it, unless something already named
/// it, and hands it to the logger. `code` is ignored; every handler passes 9999.
void HandleError(std::int32_t code, const std::string &source);

/// Hands the current error to the logger as it is.
void reportCurrentError();

/// Shows an error that no handler could report, and closes the application.
void reportEscapedError(const RaisedError &error) noexcept;

/// Runs `body` as a procedure with a handler labelled `label`: an error stops it, is reported
/// through the failure path, and the procedure returns its result type's default. `beforeReport`
/// runs first inside the handler (to end the busy cursor, to apply the database rule...).
/// An error raised by the reporting itself (the log cannot be written) leaves to the caller.
template <class Body, class BeforeReport>
auto withHandler(const std::string &label, Body &&body, BeforeReport &&beforeReport)
    -> std::invoke_result_t<Body &>
{
    using Result = std::invoke_result_t<Body &>;
    try {
        return body();
    } catch (...) {
        setCurrentError(toRaisedError(std::current_exception()));
        beforeReport();
        HandleError(9999, label);
    }
    if constexpr (!std::is_void_v<Result>)
        return Result{};
}

template <class Body>
auto withHandler(const std::string &label, Body &&body) -> std::invoke_result_t<Body &>
{
    return withHandler(label, std::forward<Body>(body), [] {});
}

/// The handler of the start and of the operations: the error goes to the logger as it is,
/// with no label of its own.
template <class Body, class BeforeReport>
void withDirectReport(Body &&body, BeforeReport &&beforeReport)
{
    try {
        body();
    } catch (...) {
        setCurrentError(toRaisedError(std::current_exception()));
        beforeReport();
        reportCurrentError();
    }
}

/// The outermost guard of everything the window toolkit calls (clicks, keys, timers): an error
/// that got past every handler — only possible when the log itself cannot be written — is shown
/// as it is and closes the application, instead of unwinding through the toolkit.
template <class Body>
void guardEvent(Body &&body) noexcept
{
    try {
        body();
    } catch (...) {
        reportEscapedError(toRaisedError(std::current_exception()));
    }
}
