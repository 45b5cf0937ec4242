#include "SendDatabaseFaultTest.h"

#include "EngineIntegrity.h"
#include "MarketplacePaths.h"
#include "platform/db/EmbeddedDatabase.h"

#include <sqlite3.h>

using ::testing::AnyOfArray;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

const std::string kDatabaseBox =
    "Error de base de datos: Verifique que la base de datos esté ejecutándose.";
const std::string kClosing = "La aplicación será cerrada";
const std::string kDatabaseLine =
    "Error: -11000 (ZorvantaMinistore:SendPendingPublications:): Error en la base de datos ";

// `rows` with the row of publication `number` in WIPRODPUBL changed to `state`, and its
// Publicar row dropped when `accepted`.
Texts withPublication(Texts rows, int number, const char *state, bool accepted)
{
    const std::string publication = "publ " + std::to_string(number) + "|";
    const std::string pending = "pend " + std::to_string(number) + "|I|";
    Texts changed;
    for (std::string &row : rows) {
        if (row.rfind(publication, 0) == 0)
            row = publication + state;
        if (!(accepted && row.rfind(pending, 0) == 0))
            changed.push_back(row);
    }
    return changed;
}

} // namespace

void SendDatabaseFaultTest::SetUp()
{
    SendPipelineTest::SetUp();
    openMarketplace({}, 5, [](std::string &data) {
        const std::string room = "maxProducts=\"50\"";
        data.replace(data.find(room), room.size(), "maxProducts=\"30000\"");
    });
    ASSERT_EQ(sqlite3_open_v2(embeddedDatabasePath("AsistenteDemo").c_str(), &m_keeper,
                              SQLITE_OPEN_READONLY, nullptr),
              SQLITE_OK);
}

void SendDatabaseFaultTest::TearDown()
{
    for (const auto &[outcome, runs] : tally)
        std::printf("%6d runs: %s\n", runs, outcome.c_str());
    letTheFileClose();
    SendPipelineTest::TearDown();
}

void SendDatabaseFaultTest::letTheFileClose()
{
    sqlite3_close(m_keeper);
    m_keeper = nullptr;
}

void SendDatabaseFaultTest::queue(int number)
{
    waiting(number, "E-1", "ZP-1", "L", "I", price("1.00"), 1);
}

void SendDatabaseFaultTest::sendAgain()
{
    ui->clearBoxes();
    std::filesystem::remove(workDir / "bitacora.log");
    gAppRunning = true;
    send();
}

Texts SendDatabaseFaultTest::tables()
{
    Texts all;
    for (const std::string &row : publications())
        all.push_back("publ " + row);
    for (const std::string &row : pendings())
        all.push_back("pend " + row);
    return all;
}

std::size_t SendDatabaseFaultTest::heldByMarketplace(int number) const
{
    return marketplace(publicationOfStore100(number).c_str()).size();
}

void SendDatabaseFaultTest::expectWholeThenResend(int number, const Texts &before)
{
    const Texts accepted = withPublication(before, number, "K", true);
    const Texts processing = withPublication(before, number, "P", false);
    const Texts after = tables();
    if (boxes().empty()) {
        // A fault the engine absorbed (a checkpoint when a connection closes, say) may go
        // unsaid only if the send still did all its work.
        expectPublished(number, before);
        ++tally["absorbed, the send completed"];
    } else {
        EXPECT_THAT(boxes(), ElementsAre(kDatabaseBox, kClosing));
        ASSERT_FALSE(logged().empty());
        EXPECT_THAT(logged().back(), StartsWith(kDatabaseLine));
        EXPECT_THAT(after, AnyOfArray(std::vector<Texts>{before, processing, accepted}));
        // The engine's text, without the file's name, which changes with every test.
        const std::string line = logged().back();
        ++tally[line.substr(0, line.find(": /"))];
    }
    EXPECT_EQ(engineIntegrity("AsistenteDemo"), "ok");

    sendAgain();

    expectPublished(number, before);
}

void SendDatabaseFaultTest::expectPublished(int number, const Texts &before)
{
    EXPECT_THAT(boxes(), IsEmpty()) << (logged().empty() ? "" : logged().back());
    EXPECT_EQ(tables(), withPublication(before, number, "K", true));
    EXPECT_EQ(heldByMarketplace(number), 1u);
}

long SendDatabaseFaultTest::faultEachStepInTurn(const std::string &step,
                                                const std::function<void(long)> &arm,
                                                const std::function<bool()> &happened,
                                                const std::function<void()> &disarm)
{
    // More faulted runs than this means the send never completes under the fault.
    constexpr long kMostRuns = 6000;
    long nth = 1;
    for (; nth < kMostRuns && !HasFailure(); ++nth) {
        SCOPED_TRACE(step + " " + std::to_string(nth));
        const int number = static_cast<int>(nth);
        queue(number);
        const Texts before = tables();
        arm(nth);
        sendAgain();
        const bool faulted = happened();
        disarm();
        if (!faulted) {
            expectPublished(number, before);
            break;
        }
        expectWholeThenResend(number, before);
    }
    EXPECT_LT(nth, kMostRuns) << "the send never got past the faults";
    std::printf("a send makes %ld calls of the kind: %s\n", nth - 1, step.c_str());
    return nth - 1;
}
