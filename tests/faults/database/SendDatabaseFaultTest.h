#pragma once

#include "SendPipelineTest.h"

#include <functional>
#include <map>
#include <string>

struct sqlite3;

/// A send of one new publication at a time to store 100, on a marketplace with room for every
/// publication a loop makes: each faulted run queues a publication of its own, so the
/// marketplace has never heard of it when the run starts.
class SendDatabaseFaultTest : public SendPipelineTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Lets the last connection to the file close during the send, as when nothing else has the
    /// database open: the engine then copies the journal into the file and syncs it.
    void letTheFileClose();

    /// Publication `number` of ERP product E-1 as ZP-1, in state L with its Publicar row.
    void queue(int number);
    /// Runs the send as a seller starting afresh would: nothing shown, nothing logged yet.
    void sendAgain();

    /// Both tables, every row: "publ n|state" and "pend n|letter|tries|error|message".
    Texts tables();
    /// How many times the marketplace holds publication `number` in store 100.
    std::size_t heldByMarketplace(int number) const;

    /// Checks the run that was just made with a fault for publication `number`, whose tables
    /// were `before`: the message is the database's (or none, when the fault was absorbed and
    /// the send completed), the tables are as before or changed as a whole, the file is sound;
    /// then a resend publishes it exactly once. Names the outcome for the tally.
    void expectWholeThenResend(int number, const Texts &before);
    /// Checks that the send published `number`, whose tables were `before`, silently and once.
    void expectPublished(int number, const Texts &before);
    /// Sends a new publication with the fault `arm(N)` in force for N = 1, 2, ... and checks
    /// each run with expectWholeThenResend, until a send during which the fault never happened
    /// (`happened`), which must have published. Returns how many faults were injected.
    long faultEachStepInTurn(const std::string &step, const std::function<void(long)> &arm,
                             const std::function<bool()> &happened,
                             const std::function<void()> &disarm);

    /// How the faulted runs ended, by outcome, for the test's own record.
    std::map<std::string, int> tally;

private:
    // Held open so that closing a connection is not closing the file: the engine would copy
    // the journal into it and sync it each time, which takes most of a short send's time.
    sqlite3 *m_keeper = nullptr;
};
