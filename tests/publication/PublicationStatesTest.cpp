// Publishing, modifying and withdrawing, seen in WIPRODPUBL and WIPRODPEND: on the embedded
// engine, and again through the ODBC driver, the path of a real server.

#include "PublicationTest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string kPrice12 = "<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\">"
                             "<![CDATA[12.5]]></Field></VariantProperties>";
const std::string kPrice15 = "<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\">"
                             "<![CDATA[15]]></Field></VariantProperties>";
const std::string kPrice18 = "<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\">"
                             "<![CDATA[18]]></Field></VariantProperties>";
const std::string kRefused = "Error: -10006: La publicación no puede ser actualizada porque "
                             "existe una operación de eliminación para esta publicación";

class PublicationStatesTest : public PublicationTest, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        PublicationTest::SetUp();
        if (GetParam() && !useOdbc())
            GTEST_SKIP() << "no SQLite ODBC driver at " << kOdbcDriver;
    }
    void TearDown() override
    {
        EXPECT_TRUE(gAppRunning);
        PublicationTest::TearDown();
    }
};

} // namespace

TEST_P(PublicationStatesTest, aNewPublicationIsLocalWithItsPublishOperation)
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    EXPECT_EQ(publish({{"Cy_List_Price", "12,5"}}), "1");
    EXPECT_EQ(publish({{"Cy_List_Price", "15"}}, ministore("200")), "2");

    EXPECT_THAT(publications(), ElementsAre("1|7|100|L|" + kPrice12, "2|7|200|L|" + kPrice15));
    EXPECT_THAT(pending(),
                ElementsAre("1|7|100|I|" + kPrice12 + "|0", "2|7|200|I|" + kPrice15 + "|0"));
    const Texts dates = rows(Sql("SELECT P.FechaPublicado, E.FechaPublicado FROM WIPRODPUBL P, "
                                 "WIPRODPEND E WHERE P.IdPrdPublicado = 1 AND "
                                 "E.IdPrdPublicado = 1"));
    ASSERT_EQ(dates.size(), 1u);
    const QDateTime written = QDateTime::fromString(QString::fromStdString(dates[0].substr(0, 19)),
                                                    "yyyy-MM-dd HH:mm:ss");
    EXPECT_TRUE(written >= before && written <= QDateTime::currentDateTime()) << dates[0];
    EXPECT_EQ(dates[0].substr(20), dates[0].substr(0, 19)) << "one moment for both rows";
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_P(PublicationStatesTest, modifyingALocalPublicationPublishesItAnewUnderANewNumber)
{
    publish({{"Cy_List_Price", "12,5"}});
    publish({{"Cy_List_Price", "15"}});
    const auto modified = listedWith("1", {{"Cy_List_Price", "18"}});
    modified->UpdatePublication();

    EXPECT_EQ(modified->publicationId(), "3");
    EXPECT_THAT(publications(), ElementsAre("2|7|100|L|" + kPrice15, "3|7|100|L|" + kPrice18));
    EXPECT_THAT(pending(),
                ElementsAre("2|7|100|I|" + kPrice15 + "|0", "3|7|100|I|" + kPrice18 + "|0"));
    EXPECT_LE(modified->publicationDate().secsTo(QDateTime::currentDateTime()), 60);
}

TEST_P(PublicationStatesTest, modificationsOfASentPublicationLeaveOneWithTheLaterValues)
{
    for (const char *state : {"P", "K"}) {
        SCOPED_TRACE(state);
        execute(Sql("DELETE FROM WIPRODPUBL"));
        execute(Sql("DELETE FROM WIPRODPEND"));
        const std::string number = publish({{"Cy_List_Price", "12,5"}});
        sendRunSets(number, state);
        listedWith(number, {{"Cy_List_Price", "15"}})->UpdatePublication();
        listedWith(number, {{"Cy_List_Price", "18"}})->UpdatePublication();

        // The publication keeps its values until the marketplace accepts the new ones.
        EXPECT_THAT(publications(), ElementsAre(number + "|7|100|" + state + "|" + kPrice12));
        const Texts pendingIn = std::string(state) == "P"
                                    ? Texts{number + "|7|100|A|" + kPrice18 + "|0",
                                            number + "|7|100|I|" + kPrice12 + "|0"}
                                    : Texts{number + "|7|100|A|" + kPrice18 + "|0"};
        EXPECT_EQ(pending(), pendingIn);
    }
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_P(PublicationStatesTest, aWithdrawalReplacesAModificationAndThenRefusesAnother)
{
    const std::string number = publish({{"Cy_List_Price", "12,5"}});
    sendRunSets(number, "K");
    listedWith(number, {{"Cy_List_Price", "15"}})->UpdatePublication();
    listed(line(number))->RemovePublication();
    EXPECT_THAT(publications(), ElementsAre("1|7|100|K|" + kPrice12));
    EXPECT_THAT(pending(), ElementsAre("1|7|100|E||0"));

    listedWith(number, {{"Cy_List_Price", "18"}})->UpdatePublication();
    EXPECT_EQ(ui->boxTexts(), Texts{kRefused});
    EXPECT_THAT(publications(), ElementsAre("1|7|100|K|" + kPrice12));
    EXPECT_THAT(pending(), ElementsAre("1|7|100|E||0"));
}

TEST_P(PublicationStatesTest, withdrawingALocalPublicationLeavesNothingToSend)
{
    const std::string kept = publish({{"Cy_List_Price", "15"}});
    const std::string number = publish({{"Cy_List_Price", "12,5"}});
    listed(line(number, "L"))->RemovePublication();
    EXPECT_THAT(publications(), ElementsAre(kept + "|7|100|L|" + kPrice15));
    EXPECT_THAT(pending(), ElementsAre(kept + "|7|100|I|" + kPrice15 + "|0"));
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_P(PublicationStatesTest, aPublicationThatCannotBeWrittenWholeLeavesNeitherRow)
{
    const std::tuple<const char *, Pairs, std::string> rows[] = {
        {"an apostrophe in the comment",
         {{"Cy_List_Price", "12,5"}, {"Comentario", "Camisa d'algodón"}},
         "100"},
        // The publish row takes the store id unquoted: only the second insert fails.
        {"a store whose id is no number", {{"Cy_List_Price", "12,5"}}, "T-100"},
    };
    for (const auto &[what, pairs, storeId] : rows) {
        SCOPED_TRACE(what);
        restart();
        publish(pairs, ministore(storeId));
        EXPECT_TRUE(publications().empty());
        EXPECT_TRUE(pending().empty());
        ASSERT_FALSE(loggedErrors().empty());
        EXPECT_THAT(loggedErrors().front(),
                    HasSubstr("Error: -11000 (PublishedProduct:CreatePublication:): Error en la "
                              "base de datos "));
        EXPECT_EQ(ui->boxTexts().front(),
                  "Error de base de datos: Verifique que la base de datos esté ejecutándose.");
        EXPECT_FALSE(gAppRunning) << "a database failure closes the application";
    }
    gAppRunning = true;
}

INSTANTIATE_TEST_SUITE_P(Backends, PublicationStatesTest, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool> &info) {
                             return info.param ? "throughOdbc" : "embedded";
                         });
