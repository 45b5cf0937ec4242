#include "wizards/send/SendProgress.h"

#include "ShellTest.h"
#include "shell/AppState.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

class SendProgressTest : public ShellTest
{
protected:
    void TearDown() override
    {
        window.reset();
        ShellTest::TearDown();
    }
    std::string text(const char *label) const
    {
        return window->findChild<QLabel *>(label)->text().toStdString();
    }
    QProgressBar &bar(const char *name) const { return *window->findChild<QProgressBar *>(name); }
    QPushButton &closeCommand() const { return *window->findChild<QPushButton *>("CloseCommand"); }
    /// Fires the start timer now instead of a second from now.
    void fireTimer() const
    {
        window->findChild<QTimer *>("Timer1")->start(0);
        QTRY_VERIFY(closeCommand().isEnabled());
    }

    std::unique_ptr<SendProgress> window = std::make_unique<SendProgress>();
};

TEST_F(SendProgressTest, bothLabelsReadZeroOfOneWithABlankAtLoad)
{
    EXPECT_EQ(window->windowTitle().toStdString(), "Progreso");
    EXPECT_EQ(text("Label1"), "Minitiendas");
    EXPECT_EQ(text("Label2"), "Productos enviados");
    EXPECT_EQ(text("Label3"), "0/1 (0%)");
    EXPECT_EQ(text("Label4"), "0/1 (0%)");
    EXPECT_EQ(bar("ProgressBar1").maximum(), 1);
    EXPECT_FALSE(closeCommand().isEnabled());
}

TEST_F(SendProgressTest, aCountShowsValueTotalAndRoundedShareWithoutTheBlank)
{
    struct Row
    {
        const char *what;
        std::int16_t total;
        std::int16_t done;
        const char *label;
        int barMaximum;
    };
    const Row rows[] = {
        {"two of five", 5, 2, "2/5(40%)", 5},
        {"a store with nothing to send", 0, 0, "0/0(0%)", 1},
        {"a third rounds down", 3, 1, "1/3(33%)", 3},
        {"two thirds round up", 3, 2, "2/3(67%)", 3},
        {"all of them", 7, 7, "7/7(100%)", 7},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        window->setMaxProducts(row.total);
        EXPECT_EQ(text("Label4"),
                  row.total == 0 ? "0/0(0%)" : "0/" + std::to_string(row.total) + "(0%)");
        window->setProducts(row.done);
        EXPECT_EQ(text("Label4"), row.label);
        EXPECT_EQ(bar("ProgressBar2").maximum(), row.barMaximum);
        EXPECT_EQ(window->products(), row.done);

        window->setMaxMinistores(row.total);
        window->setMinistores(row.done);
        EXPECT_EQ(text("Label3"), row.label);
        EXPECT_EQ(window->ministores(), row.done);
    }
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(SendProgressTest, theWindowCannotBeLeftUntilTheSendingIsDone)
{
    window->setMinistores(std::make_shared<Ministores>());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));

    // Neither the close box nor Esc takes the person out while the work may still run.
    EXPECT_FALSE(window->close());
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(text("Label3"), "0/1 (0%)") << "the sending waits for its timer";

    fireTimer();
    EXPECT_EQ(text("Label3"), "0/0(0%)");
    EXPECT_EQ(ui->cursor(), 0);
    QTest::mouseClick(&closeCommand(), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->result(), QDialog::Accepted);
}

TEST_F(SendProgressTest, aClosingApplicationTakesTheWindowWithIt)
{
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    gAppRunning = false;
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(closeCommand().isEnabled());
}

} // namespace
