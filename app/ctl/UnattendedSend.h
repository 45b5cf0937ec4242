#pragma once

#include <ostream>
#include <string>

/// Exit statuses of the send, as a scheduler reads them.
enum class SendStatus { AllAccepted = 0, RefusedOrPending = 1, LinkFailed = 2, Fatal = 3 };

/// The send of the window without it, for a scheduled job: the linked ministores in order,
/// each through the same run, under the database's send lock; a progress line on `out`,
/// boxes on the error stream, and a report in "informes".
class UnattendedSend
{
public:
    UnattendedSend(std::ostream &out, std::ostream &errors, bool terminal)
        : m_out(out), m_errors(errors), m_terminal(terminal)
    {
    }

    /// Sends every linked ministore, or only `only`. Another send holding the lock stops this
    /// one before it touches anything (Fatal).
    SendStatus run(const std::string &only);

private:
    std::ostream &m_out;
    std::ostream &m_errors;
    bool m_terminal;
};
