// `kill -9` of `asistentectl enviar` just before and just after each COMMIT of a send, then a
// restart: the tables hold each publication as it was, handed over, or confirmed, and the
// second run leaves every publication accepted once on the marketplace.

#include "AsistentectlTest.h"
#include "EngineIntegrity.h"
#include "MarketplacePaths.h"

#include <algorithm>

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// More transactions than this means the send never ends.
constexpr int kMostCommits = 20;

/// The moment of the kill around the chosen COMMIT.
struct KillMoment
{
    const char *name;
    bool afterCommit;
};

void PrintTo(const KillMoment &moment, std::ostream *out)
{
    *out << moment.name;
}

bool killed(int status)
{
    // The shell either became the program or reports its death by the signal as 128 + 9.
    return status == -1 || status == 128 + SIGKILL;
}

} // namespace

class KilledSendTest : public AsistentectlTest, public ::testing::WithParamInterface<KillMoment>
{
protected:
    /// Store 100 linked; publications 1 and 2 waiting to be published, in one batch.
    void arrange()
    {
        openMarketplace();
        link("100", "DV-01");
        waiting(1, "E-1", "ZP-1", "L", "I", price("1.00"), 1);
        waiting(2, "E-3", "ZP-2", "L", "I", price("2.00"), 2);
    }
    void restart()
    {
        closeMarketplace();
        std::filesystem::remove(database->dir() / "bitacora.log");
        database->execute(Sql("DELETE FROM WIPRODPEND"));
        database->execute(Sql("DELETE FROM WIPRODPUBL"));
        database->execute(Sql("DELETE FROM WIPRODASOC"));
        database->execute(Sql("DELETE FROM WITIENDAS"));
    }
    /// The send, killed at the `commit`-th COMMIT.
    Run killedAt(int commit)
    {
        const std::string asan = std::getenv("ASAN_OPTIONS") ? std::getenv("ASAN_OPTIONS") : "";
        setenv("LD_PRELOAD", KILL_AT_COMMIT_LIBRARY, 1);
        // The sanitizer's runtime must otherwise be the first library of the process.
        setenv("ASAN_OPTIONS", (asan + ":verify_asan_link_order=0").c_str(), 1);
        setenv("KILL_AT_COMMIT", std::to_string(commit).c_str(), 1);
        if (GetParam().afterCommit)
            setenv("KILL_AFTER_COMMIT", "1", 1);
        Run run = ctl("enviar");
        unsetenv("KILL_AFTER_COMMIT");
        unsetenv("KILL_AT_COMMIT");
        unsetenv("LD_PRELOAD");
        setenv("ASAN_OPTIONS", asan.c_str(), 1);
        return run;
    }
    /// The Publicar operations of publication `number` that the marketplace received.
    std::size_t publishRequests(int number) const
    {
        const std::string sent =
            "<Operation PublicationID='" + std::to_string(number) + "'><Operation>Publicar<";
        std::size_t count = 0;
        for (const std::string &request : wire())
            count += request.find(sent) != std::string::npos;
        return count;
    }
    bool heldByMarketplace(int number) const
    {
        return !marketplace(publicationOfStore100(number).c_str()).empty();
    }
};

TEST_P(KilledSendTest, aSendKilledAtAnyTransactionIsFinishedByTheNextRunWithEachPublicationOnce)
{
    int commit = 1;
    for (; commit < kMostCommits && !HasFailure(); ++commit) {
        SCOPED_TRACE("COMMIT " + std::to_string(commit));
        arrange();

        const Run first = killedAt(commit);

        if (first.status == 0) {
            // Every transaction of the send went by: it ended as an uninterrupted one does.
            EXPECT_THAT(tables(), ElementsAre("1|K", "2|K"));
            break;
        }
        ASSERT_TRUE(killed(first.status)) << first.status << first.out << first.err;
        const Texts states = publications();
        const Texts waiting = pendings();
        for (int number : {1, 2}) {
            const std::string n = std::to_string(number);
            // Never a confirmed publication that still waits, nor one gone from the queue
            // without being confirmed.
            const bool confirmed =
                std::find(states.begin(), states.end(), n + "|K") != states.end();
            const bool queued =
                std::find(waiting.begin(), waiting.end(), n + "|I|0|0|") != waiting.end();
            EXPECT_NE(confirmed, queued) << n;
            EXPECT_THAT(states, Contains(AnyOf(n + "|L", n + "|P", n + "|K")));
        }
        EXPECT_EQ(engineIntegrity("AsistenteDemo"), "ok");
        // Accepted by the marketplace while the local confirmation was lost: the next run
        // publishes it again and takes the marketplace's "already exists" as the acceptance.
        std::vector<bool> acceptedButWaiting;
        for (int number : {1, 2})
            acceptedButWaiting.push_back(
                heldByMarketplace(number) &&
                std::find(waiting.begin(), waiting.end(), std::to_string(number) + "|I|0|0|") !=
                    waiting.end());

        const Run second = ctl("enviar");

        EXPECT_EQ(second.status, 0) << second.out << second.err;
        EXPECT_THAT(tables(), ElementsAre("1|K", "2|K"));
        EXPECT_TRUE(heldByMarketplace(1) && heldByMarketplace(2));
        for (int number : {1, 2})
            EXPECT_EQ(publishRequests(number), acceptedButWaiting[number - 1] ? 2u : 1u) << number;
        const bool againToldExists = std::find(acceptedButWaiting.begin(), acceptedButWaiting.end(),
                                               true) != acceptedButWaiting.end();
        EXPECT_EQ(file("bitacora.log").find("Error -8005: publicación existente") !=
                      std::string::npos,
                  againToldExists);
        EXPECT_THAT(second.out, HasSubstr("0 rechazadas")) << second.out;
        restart();
    }
    EXPECT_GT(commit, 2) << "the send was never killed in the middle";
    EXPECT_LT(commit, kMostCommits);
}

INSTANTIATE_TEST_SUITE_P(AroundEachCommit, KilledSendTest,
                         ::testing::Values(KillMoment{"justBeforeTheCommit", false},
                                           KillMoment{"justAfterTheCommit", true}),
                         [](const ::testing::TestParamInfo<KillMoment> &info) {
                             return info.param.name;
                         });
