#include "SendPipelineTest.h"
#include "TestPanels.h"
#include "publication/SellerLists.h"
#include "publication/SendLock.h"
#include "wizards/send/SendWizard.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <fstream>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// The send wizard as the seller opens it, over a feria-sim of the test's own and the seller's
/// rows written with SQL. The ERP's products are "Sartén" E-1 (IVA), E-2 and E-3 (no tax).
class SendFlowTest : public SendPipelineTest
{
protected:
    void TearDown() override
    {
        wizard.reset();
        SendPipelineTest::TearDown();
    }

    /// Links a ministore to a deposit, as the ministore wizard does.
    void link(const char *store, const char *deposit)
    {
        database->execute(Sql() << "INSERT INTO WITIENDAS VALUES ('" << sqlText(store)
                                << "', 'x', '" << sqlText(deposit) << "')");
    }
    /// A pending row's last failure, as an earlier send leaves it.
    void failed(int number, const char *letter, int code, const char *message)
    {
        database->execute(Sql() << "UPDATE WIPRODPEND SET Error = " << sqlNumber(code)
                                << ", MsgErr = '" << sqlText(message)
                                << "' WHERE IdPrdPublicado = " << sqlNumber(number)
                                << " AND Estado = '" << sqlText(letter) << "'");
    }

    void openWizard()
    {
        // As the start does: the ERP's lists make publication lines.
        registerSellerListLines();
        wizard = std::make_unique<SendWizard>(host, "SendWizard1", nullptr);
        wizard->resize(1000, 700);
        wizard->show();
        wizard->Start();
    }
    QTableWidget &grid() const { return *wizard->findChild<QTableWidget *>("MSFlexGrid1"); }
    QPushButton &button(const char *name) const { return *wizard->findChild<QPushButton *>(name); }
    /// The list's lines, columns joined by '|'.
    Texts lines() const
    {
        Texts texts;
        for (int row = 0; row < grid().rowCount(); ++row) {
            std::string line;
            for (int column = 0; column < grid().columnCount(); ++column) {
                const QTableWidgetItem *cell = grid().item(row, column);
                line += (column ? "|" : "") + (cell ? cell->text().toStdString() : "");
            }
            if (line != "||||")
                texts.push_back(line);
        }
        return texts;
    }
    /// Clicks the `line`-th line, from 1.
    void selectLine(int line)
    {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().visualItemRect(grid().item(line - 1, 0)).center());
        QTest::qWait(0);
    }

    /// Plays the person in "Progreso": looks at it before the work starts, lets the timer fire
    /// (now, not a second later), waits for the end and reads the labels; presses OK only when
    /// it can be pressed.
    void watchProgress()
    {
        ui->queueDialog([this](QDialog &window) -> bool {
            const auto label = [&](const char *name) {
                return window.findChild<QLabel *>(name)->text().toStdString();
            };
            auto &close = *window.findChild<QPushButton *>("CloseCommand");
            atLoad = {label("Label3"), label("Label4")};
            EXPECT_TRUE(wire().empty()) << "nothing leaves before the timer";
            window.findChild<QTimer *>("Timer1")->start(0);
            EXPECT_TRUE(QTest::qWaitFor([&] { return close.isEnabled() || !gAppRunning; }));
            atEnd = {label("Label3"), label("Label4")};
            closeEnabled = close.isEnabled();
            if (closeEnabled)
                QTest::mouseClick(&close, Qt::LeftButton);
            return closeEnabled;
        });
    }

    RecordingHost host;
    std::unique_ptr<SendWizard> wizard;
    Texts atLoad;
    Texts atEnd;
    bool closeEnabled = false;
};

TEST_F(SendFlowTest, eachPendingOperationIsALineWithItsOwnStateAndARefusedOneStaysAfterTheSend)
{
    openMarketplace("<Fault operation='9' publication='2' code='-8006' description='Sin cupo'/>");
    link("100", "DV-01");
    associate(1, "E-1", "ZP-1");
    publication(1, 1, "100", "P");
    pending(1, 1, "100", "I", price("1.00"), 1);
    pending(1, 1, "100", "A", price("2.00"), 2);
    failed(1, "A", -8006, "Sin cupo");
    associate(2, "E-3", "ZP-2");
    publication(2, 2, "100", "L");
    pending(2, 2, "100", "I", price("3.00"), 3);

    openWizard();
    EXPECT_THAT(lines(),
                ElementsAre("Por enviar|Publicación|E-1|Sartén|", "Error!|Modificación|E-1|Sartén|",
                            "Por enviar|Publicación|E-3|Sartén|"));
    EXPECT_FALSE(button("ShowError").isEnabled()) << "the first line has no error";
    selectLine(2);
    ASSERT_TRUE(button("ShowError").isEnabled());
    // The small marketplace's products have no price block to show: the grid says so.
    ui->clearBoxes();
    QTest::mouseClick(&button("ShowError"), Qt::LeftButton);
    EXPECT_THAT(boxes(), ElementsAre("Error: -8006: Sin cupo"));

    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);
    EXPECT_THAT(atLoad, ElementsAre("0/1 (0%)", "0/1 (0%)"));
    EXPECT_THAT(atEnd, ElementsAre("1/1(100%)", "3/3(100%)"));
    EXPECT_THAT(wire(), ElementsAre(HasSubstr("<StoreID>100</StoreID>")));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|P"));
    // The list is read again: only the refused row is left, now with its error.
    EXPECT_THAT(lines(), ElementsAre("Error!|Publicación|E-3|Sartén|"));
    EXPECT_TRUE(button("ShowError").isEnabled());
    EXPECT_EQ(ui->cursor(), 0);

    // The send left its report beside the log: two accepted, one to be retried with its reason.
    std::vector<std::filesystem::path> reports;
    for (const auto &entry : std::filesystem::directory_iterator(workDir / "informes"))
        reports.push_back(entry.path().filename());
    std::sort(reports.begin(), reports.end());
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0].extension(), ".html");
    std::ifstream json(workDir / "informes" / reports[1]);
    const std::string text((std::istreambuf_iterator<char>(json)), {});
    EXPECT_THAT(text, HasSubstr("\"enviadas\": 3, \"aceptadas\": 2, \"rechazadas\": 0, "
                                "\"reintentos\": 1"));
    EXPECT_THAT(text, HasSubstr("Sin cupo"));
}

TEST_F(SendFlowTest, aSendUnderWayElsewhereLeavesTheTablesAndTheWireAlone)
{
    openMarketplace();
    link("100", "DV-01");
    associate(1, "E-1", "ZP-1");
    publication(1, 1, "100", "L");
    pending(1, 1, "100", "I", price("1.00"), 1);
    SendLock scheduled;
    std::string why;
    ASSERT_TRUE(scheduled.tryLock(SendLock::fileFor(gSeller->database()), why)) << why;

    openWizard();
    // The small marketplace's products have no price block to show: the grid says so.
    ui->clearBoxes();
    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);
    EXPECT_TRUE(closeEnabled);
    // Besides the grid's own boxes when the list is read again, the seller is told why.
    const auto told = std::count_if(ui->boxes().begin(), ui->boxes().end(),
                                    [](const RecordedBox &box) { return box.title == "Progreso"; });
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(wire().empty());
    EXPECT_THAT(publications(), ElementsAre("1|L"));
    EXPECT_THAT(pendings(), ElementsAre("1|I|0|0|"));
}

TEST_F(SendFlowTest, aFailureInTheSecondOfThreeStoresStillSendsTheThird)
{
    openMarketplace("<Fault operation='9' call='2' effect='malformed'/>");
    const char *stores[] = {"100", "200", "300"};
    const char *deposits[] = {"DV-01", "DV-02", "DV-03"};
    for (int n = 1; n <= 3; ++n) {
        const std::string product = "ZP-" + std::to_string(n);
        link(stores[n - 1], deposits[n - 1]);
        associate(n, "E-3", product.c_str());
        publication(n, n, stores[n - 1], "L");
        pending(n, n, stores[n - 1], "I", price("1.00"), n);
    }

    openWizard();
    // The list opens narrowed to the first linked store; the send takes all three.
    EXPECT_THAT(lines(), ElementsAre("Por enviar|Publicación|E-3|Sartén|"));
    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);

    EXPECT_EQ(wire().size(), 3u);
    EXPECT_THAT(atEnd, ElementsAre("3/3(100%)", "1/1(100%)"));
    EXPECT_THAT(boxes(), Contains("Error: -10502: " + kGenericBox));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|P", "3|K"));
    EXPECT_THAT(marketplace("//Store[@StoreID='300']/Publication/@ZorvantaID"),
                ElementsAre("ZP-3"));
    EXPECT_THAT(lines(), ElementsAre());
}

TEST_F(SendFlowTest, aStoreWhoseDepositLinkWasRemovedIsNotSent)
{
    openMarketplace();
    link("100", "DV-01");
    associate(1, "E-3", "ZP-1");
    publication(1, 1, "100", "L");
    pending(1, 1, "100", "I", price("1.00"), 1);
    associate(2, "E-3", "ZP-2");
    publication(2, 2, "200", "L");
    pending(2, 2, "200", "I", price("1.00"), 2);

    openWizard();
    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);

    EXPECT_THAT(atEnd, ElementsAre("1/1(100%)", "1/1(100%)"));
    EXPECT_THAT(wire(), ElementsAre(HasSubstr("<StoreID>100</StoreID>")));
    EXPECT_THAT(pendings(), ElementsAre("2|I|0|0|"));
}

TEST_F(SendFlowTest, aStoreWithNothingToSendReadsZeroOfZero)
{
    openMarketplace();
    link("100", "DV-01");

    openWizard();
    EXPECT_THAT(lines(), ElementsAre());
    EXPECT_FALSE(button("ShowError").isEnabled());
    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);

    EXPECT_THAT(atEnd, ElementsAre("1/1(100%)", "0/0(0%)"));
    EXPECT_TRUE(wire().empty());
}

TEST_F(SendFlowTest, withNoLinkedMinistoreTheSellerIsToldAndLeavesTheWizard)
{
    openMarketplace();
    associate(1, "E-3", "ZP-1");
    publication(1, 1, "100", "L");
    pending(1, 1, "100", "I", price("1.00"), 1);

    openWizard();
    EXPECT_THAT(boxes(), ElementsAre("No hay minitiendas asociadas. Por favor asocie al menos "
                                     "una minitienda antes de realizar una publicación."));
    EXPECT_THAT(host.keys, ElementsAre("Stop"));
}

TEST_F(SendFlowTest, afterAFatalFailureTheWindowCannotBeClosedByTheSeller)
{
    // The refusal's text carries an apostrophe: recording it fails in the database, which is
    // fatal, and the application closes with the window still unfinished.
    openMarketplace("<Fault operation='9' publication='1' code='-8006' "
                    "description=\"Sin cupo en la tienda d'Andina\"/>");
    link("100", "DV-01");
    associate(1, "E-3", "ZP-1");
    publication(1, 1, "100", "L");
    pending(1, 1, "100", "I", price("1.00"), 1);

    openWizard();
    watchProgress();
    QTest::mouseClick(&button("Enviar"), Qt::LeftButton);

    EXPECT_FALSE(gAppRunning);
    EXPECT_FALSE(closeEnabled);
    EXPECT_THAT(atEnd, ElementsAre("0/1(0%)", "0/1(0%)"));
    EXPECT_THAT(boxes(), Contains(HasSubstr("Error de base de datos")));
    EXPECT_EQ(boxes().back(), "La aplicación será cerrada");
    // The operation is rolled back and waits for the next send.
    EXPECT_THAT(pendings(), ElementsAre("1|I|0|0|"));
}

} // namespace
