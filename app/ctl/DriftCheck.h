#pragma once

#include <ostream>
#include <string>

/// What has drifted in the seller's tables, store by store, and what it means for the seller:
/// publications stuck in P with nothing pending, pending rows the send skips (association
/// removed, store no longer linked to a deposit) and withdrawals queued beside an update.
/// Reading writes nothing; requeue() is the one action that writes.
class DriftCheck
{
public:
    DriftCheck(std::ostream &out, std::ostream &errors) : m_out(out), m_errors(errors) {}

    /// Lists every anomaly under its store. 0 when none, 1 when some, 3 when the tables could
    /// not be read (the error has been reported).
    int show();
    /// Gives a publication stuck in P its I row again, as a new publication has it, so that
    /// the next send publishes it. 0 when written; 1, writing nothing, when the publication is
    /// not stuck or could not be re-queued.
    int requeue(const std::string &publication);

private:
    std::ostream &m_out;
    std::ostream &m_errors;
};
