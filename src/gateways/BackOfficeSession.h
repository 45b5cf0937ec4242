#pragma once

#include <cstdint>
#include <functional>

/// Whoever holds the session with the back office (the seller). The gateway below it closes and
/// reopens the session when the connector reports it lost; the holder registers itself here.
class BackOfficeSession
{
public:
    virtual ~BackOfficeSession() = default;
    /// The open session's id, opening one when none is open; 0 when opening failed.
    virtual std::int32_t sessionId() = 0;
    virtual void closeSession() = 0;
};

/// Registers the function that gives the holder, making it at its first use.
void setBackOfficeSession(std::function<BackOfficeSession &()> holder);

/// The registered holder. ObjectNotSet when nothing registered one.
BackOfficeSession &backOfficeSession();
