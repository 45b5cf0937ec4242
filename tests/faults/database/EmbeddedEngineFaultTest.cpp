// The seller's embedded database failing under a send, at every step a fault can reach: each
// run ends in the database's message or completes, leaves each publication as it was, handed
// over, or confirmed, never in between, and a resend publishes it exactly once.

#include "FailingAllocator.h"
#include "FaultyVfs.h"
#include "SendDatabaseFaultTest.h"
#include "platform/db/EmbeddedDatabase.h"

#include <chrono>
#include <sqlite3.h>
#include <thread>


namespace {

/// A kind of file system failure and the engine's code for it.
struct IoFault
{
    const char *name;
    FaultyVfs::Call call;
    int code;
    bool fileCloses = false;
};

void PrintTo(const IoFault &fault, std::ostream *out)
{
    *out << fault.name;
}

} // namespace

TEST_F(SendDatabaseFaultTest, anAllocationThatFailsAtAnyStepOfTheSendLosesNothing)
{
    const long injected = faultEachStepInTurn("allocation", FailingAllocator::failAt,
                                              FailingAllocator::failed, FailingAllocator::disarm);
    EXPECT_GT(injected, 100) << "opening a connection alone allocates more";
}

class FileSystemFaultTest : public SendDatabaseFaultTest,
                            public ::testing::WithParamInterface<IoFault>
{
};

TEST_P(FileSystemFaultTest, theFileSystemFailingAtAnyCallOfTheSendLosesNothing)
{
    const IoFault &fault = GetParam();
    if (fault.fileCloses)
        letTheFileClose();
    const long injected = faultEachStepInTurn(
        fault.name, [&](long nth) { FaultyVfs::failAt(fault.call, nth, fault.code); },
        FaultyVfs::failed, FaultyVfs::disarm);
    EXPECT_GT(injected, 0) << "the send never made such a call";
}

INSTANTIATE_TEST_SUITE_P(
    EveryKindOfCall, FileSystemFaultTest,
    ::testing::Values(
        IoFault{"aReadOfTheDatabaseFails", FaultyVfs::Call::Read, SQLITE_IOERR_READ},
        IoFault{"aWriteOfTheDatabaseFileFails", FaultyVfs::Call::Write, SQLITE_IOERR_WRITE, true},
        IoFault{"aWriteOfTheJournalFails", FaultyVfs::Call::Journal, SQLITE_IOERR_WRITE},
        IoFault{"aSyncFails", FaultyVfs::Call::Sync, SQLITE_IOERR_FSYNC},
        IoFault{"aSyncFailsWhenTheFileCloses", FaultyVfs::Call::Sync, SQLITE_IOERR_FSYNC, true},
        IoFault{"aLockCannotBeTaken", FaultyVfs::Call::Lock, SQLITE_IOERR_LOCK},
        IoFault{"theDiskIsFull", FaultyVfs::Call::AnyWrite, SQLITE_FULL}),
    [](const ::testing::TestParamInfo<IoFault> &info) { return info.param.name; });

/// Another program's connection writing to the seller's database.
class OtherWriter
{
public:
    OtherWriter()
    {
        sqlite3_open_v2(embeddedDatabasePath("AsistenteDemo").c_str(), &m_db, SQLITE_OPEN_READWRITE,
                        nullptr);
    }
    ~OtherWriter()
    {
        if (m_finisher.joinable())
            m_finisher.join();
        sqlite3_close(m_db);
    }
    /// Takes the write lock and keeps it.
    bool hold() { return sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == 0; }
    /// Lets go after `seconds`, from another thread, while the send waits.
    void finishAfter(int seconds)
    {
        m_finisher = std::thread([this, seconds] {
            std::this_thread::sleep_for(std::chrono::seconds(seconds));
            finish();
        });
    }
    void finish() { sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr); }

private:
    sqlite3 *m_db = nullptr;
    std::thread m_finisher;
};

TEST_F(SendDatabaseFaultTest, anotherWriterThatFinishesWithinTheTimeOutOnlyDelaysTheSend)
{
    queue(1);
    const Texts before = tables();
    OtherWriter other;
    ASSERT_TRUE(other.hold());
    other.finishAfter(2);

    sendAgain();

    expectPublished(1, before);
}

TEST_F(SendDatabaseFaultTest, anotherWriterHoldingTheDatabaseBeyondTheTimeOutStopsTheSendUnsent)
{
    queue(1);
    const Texts before = tables();
    OtherWriter other;
    ASSERT_TRUE(other.hold());

    sendAgain();
    other.finish();

    ASSERT_FALSE(logged().empty());
    EXPECT_EQ(logged().back(), "Error: -11000 (ZorvantaMinistore:SendPendingPublications:): "
                               "Error en la base de datos database is locked");
    EXPECT_EQ(tables(), before) << "nothing turned P";
    EXPECT_TRUE(wire().empty()) << "nothing left for the marketplace";
    expectWholeThenResend(1, before);
}
