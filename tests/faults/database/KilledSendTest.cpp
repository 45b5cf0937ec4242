// `kill -9` of `asistentectl enviar` just before and just after each COMMIT of a send that
// publishes, updates and withdraws, then a restart: each operation is found waiting or applied,
// never in between, and the second run leaves the marketplace with each publication once.

#include "AsistentectlTest.h"
#include "MarketplacePaths.h"

using ::testing::AnyOfArray;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

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

const std::string kOldPrice = "<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[10.00]]>"
                              "</Field></Properties><VariantProperties/>";

bool killed(int status)
{
    // The shell either became the program or reports its death by the signal as 128 + 9.
    return status == -1 || status == 128 + SIGKILL;
}

} // namespace

class KilledSendTest : public AsistentectlTest, public ::testing::WithParamInterface<KillMoment>
{
protected:
    /// Store 100 linked, in one batch: publication 1 to publish, 2 (on the marketplace at
    /// 10.00) to update to 12.50, 3 (on the marketplace) to withdraw.
    void arrange()
    {
        openMarketplace({}, 5, [](std::string &data) {
            const std::string user = "<User name=\"carmen\" password=\"andina2026\"/>";
            data.replace(data.find(user), user.size(),
                         user + "<Publication id=\"2\" product=\"ZP-2\"><Field fieldID="
                                "\"Cy_List_Price\">10.00</Field></Publication>"
                                "<Publication id=\"3\" product=\"ZP-3\"/>");
        });
        queueAllThreeOperations("1.00");
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

    /// Publication `number`'s rows: "state|attributes" in WIPRODPUBL, "pend letter|tries".
    Texts rowsOf(int number)
    {
        Texts rows = database->rows(Sql() << "SELECT Estado, Atributos FROM WIPRODPUBL WHERE "
                                             "IdPrdPublicado = "
                                          << sqlNumber(number));
        for (const std::string &row :
             database->rows(Sql() << "SELECT Estado, NumInt FROM WIPRODPEND WHERE "
                                     "IdPrdPublicado = "
                                  << sqlNumber(number)))
            rows.push_back("pend " + row);
        return rows;
    }
    /// The operations `word` of publication `number` that the marketplace received.
    std::size_t received(int number, const char *word) const
    {
        const std::string sent =
            "<Operation PublicationID='" + std::to_string(number) + "'><Operation>" + word + "<";
        std::size_t count = 0;
        for (const std::string &request : wire())
            count += request.find(sent) != std::string::npos;
        return count;
    }
    bool heldByMarketplace(int number) const
    {
        return !marketplace(publicationOfStore100(number).c_str()).empty();
    }
    Texts marketplacePriceOf2() const
    {
        return marketplace("//Store[@StoreID='100']/Publication[@PublicationID='2']/"
                           "Field[@fieldID='Cy_List_Price']");
    }
};

TEST_P(KilledSendTest, aSendKilledAtAnyTransactionIsFinishedByTheNextRunWithEachPublicationOnce)
{
    const std::string newPrice = price("12.50");
    // A publication keeps what the marketplace last accepted: nothing yet for a new one.
    const Texts published = {"K|" + kNoFields};
    const Texts updated = {"K|" + newPrice};
    int commit = 1;
    for (; commit < kMostCommits && !HasFailure(); ++commit) {
        SCOPED_TRACE("COMMIT " + std::to_string(commit));
        arrange();

        const Run first = killedAt(commit);

        if (first.status == 0) {
            // Every transaction of the send went by: it ended as an uninterrupted one does.
            EXPECT_EQ(rowsOf(1), published);
            break;
        }
        ASSERT_TRUE(killed(first.status)) << first.status << first.out << first.err;
        // Each operation waits whole or is applied whole.
        const Texts one = rowsOf(1), two = rowsOf(2), three = rowsOf(3);
        EXPECT_THAT(one, AnyOfArray(std::vector<Texts>{{"L|" + kNoFields, "pend I|0"},
                                                       {"P|" + kNoFields, "pend I|0"},
                                                       published}));
        EXPECT_THAT(two, AnyOfArray(std::vector<Texts>{{"K|" + kOldPrice, "pend A|0"}, updated}));
        EXPECT_THAT(three, AnyOfArray(std::vector<Texts>{{"K|" + kOldPrice, "pend E|0"}, {}}));
        EXPECT_EQ(database->integrity(), "ok");
        // What the marketplace applied while the local record of it was lost: the next run
        // sends it again, and takes "already exists" or "does not exist" as the acceptance.
        const bool publishedTwice = heldByMarketplace(1) && one.size() == 2;
        const bool updatedTwice = marketplacePriceOf2() == Texts{"12.50"} && two.size() == 2;
        const bool withdrawnTwice = !heldByMarketplace(3) && three.size() == 2;

        const Run second = ctl("enviar");

        EXPECT_EQ(second.status, 0) << second.out << second.err;
        EXPECT_THAT(second.out, HasSubstr("0 rechazadas"));
        EXPECT_EQ(rowsOf(1), published);
        EXPECT_EQ(rowsOf(2), updated);
        EXPECT_THAT(rowsOf(3), IsEmpty());
        EXPECT_THAT(marketplace("//Store[@StoreID='100']/Publication/@PublicationID"),
                    ElementsAre("1", "2"));
        EXPECT_THAT(marketplacePriceOf2(), ElementsAre("12.50"));
        EXPECT_EQ(received(1, "Publicar"), publishedTwice ? 2u : 1u);
        EXPECT_EQ(received(2, "Actualizar"), updatedTwice ? 2u : 1u);
        EXPECT_EQ(received(3, "Despublicar"), withdrawnTwice ? 2u : 1u);
        const std::string log = file("bitacora.log");
        EXPECT_EQ(log.find("Error -8005: publicación existente") != std::string::npos,
                  publishedTwice);
        EXPECT_EQ(log.find("Error -8004: publicación no existe") != std::string::npos,
                  withdrawnTwice);
        restart();
    }
    EXPECT_GT(commit, 4) << "the send was not killed at each of its transactions";
    EXPECT_LT(commit, kMostCommits);
}

INSTANTIATE_TEST_SUITE_P(AroundEachCommit, KilledSendTest,
                         ::testing::Values(KillMoment{"justBeforeTheCommit", false},
                                           KillMoment{"justAfterTheCommit", true}),
                         [](const ::testing::TestParamInfo<KillMoment> &info) {
                             return info.param.name;
                         });
