#include "ShellTest.h"
#include "TestPanels.h"

#include "shell/BusyCursor.h"
#include "shell/frame/NavigationButtons.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class WizardShellTest : public ShellTest
{
protected:
    RecordingHost host;
};

TEST_F(WizardShellTest, startShowsTheFirstPageAndSwitchingHidesTheFormer)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    wizard.Start();
    EXPECT_EQ(wizard.currentPageKey(), "Show");
    EXPECT_EQ(wizard.first->starts, 1);

    wizard.SwitchPage("Second");
    EXPECT_FALSE(wizard.first->isVisibleTo(&wizard));
    EXPECT_TRUE(wizard.second->isVisibleTo(&wizard));
    EXPECT_EQ(wizard.second->starts, 1);
    EXPECT_EQ(gWaitCount, 0);
}

TEST_F(WizardShellTest, switchingToThePageOnShowStartsItAgain)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    wizard.Start();
    wizard.SwitchPage("Show");
    EXPECT_EQ(wizard.first->starts, 2);
    EXPECT_TRUE(wizard.first->isVisibleTo(&wizard));
}

TEST_F(WizardShellTest, stopAndExitGoUpToTheWindow)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    wizard.Start();
    wizard.SwitchPage("Stop");
    wizard.SwitchPage("Exit");
    EXPECT_EQ(host.keys, (std::vector<std::string>{"Stop", "Exit"}));
    EXPECT_EQ(wizard.currentPageKey(), "Show");
}

TEST_F(WizardShellTest, canStopIsTheCurrentPagesAnswer)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    wizard.Start();
    wizard.first->mayStop = false;
    EXPECT_FALSE(wizard.canStop());
    wizard.first->mayStop = true;
    EXPECT_TRUE(wizard.canStop());
}

TEST_F(WizardShellTest, anUnknownPageKeyEndsInTheHandlerAfterHidingThePageOnShow)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    wizard.Start();
    wizard.SwitchPage("Nowhere");

    EXPECT_FALSE(wizard.first->isVisibleTo(&wizard));
    EXPECT_EQ(gWaitCount, 0);
    ASSERT_FALSE(logLines().empty());
    EXPECT_NE(logLines()[0].find("Error: 5 (TwoPageWizard:SwitchPage)"), std::string::npos);
    // A runtime error is fatal.
    EXPECT_FALSE(gAppRunning);
}

TEST_F(WizardShellTest, theOperationSurvivesARestart)
{
    TwoPageWizard wizard(host, "TwoPageWizard1", nullptr);
    auto operation = std::make_shared<Operation>();
    wizard.setOperation(operation);
    wizard.Start();
    wizard.Start();
    EXPECT_EQ(wizard.operation(), operation);
}

class NavigationButtonsTest : public ShellTest
{
protected:
    QPushButton *button(NavigationButtons &bar, const char *name)
    {
        return bar.findChild<QPushButton *>(name);
    }
};

TEST_F(NavigationButtonsTest, captionsInTheirOrderLeftToRightInQuartersOfTheBar)
{
    NavigationButtons bar;
    bar.resize(600, bar.height()); // 9000 twips: each button (9000 - 250) / 4 wide
    bar.show();
    const char *names[] = {"Cancel", "Back", "Forward", "Accept"};
    const char *captions[] = {"Cance&lar", "<< An&terior", "&Siguiente >>", "&Aceptar"};
    int previousLeft = -1;
    for (int i = 0; i < 4; ++i) {
        QPushButton *b = button(bar, names[i]);
        ASSERT_NE(b, nullptr) << names[i];
        EXPECT_EQ(b->text().toStdString(), captions[i]);
        EXPECT_GT(b->x(), previousLeft);
        EXPECT_EQ(b->y(), 3);
        EXPECT_EQ(b->width(), 146);
        previousLeft = b->x();
    }
    EXPECT_EQ(button(bar, "Cancel")->x(), 3);
    EXPECT_EQ(button(bar, "Accept")->x(), 451); // 50 + 3 * (2187.5 + 50) twips
    bar.hide();
}

TEST_F(NavigationButtonsTest, aDisabledButtonRaisesNothing)
{
    NavigationButtons bar;
    bar.resize(600, bar.height());
    bar.show();
    QSignalSpy next(&bar, &NavigationButtons::NextClick);
    bar.setNextEnabled(false);
    QTest::mouseClick(button(bar, "Forward"), Qt::LeftButton);
    EXPECT_EQ(next.count(), 0);
    EXPECT_FALSE(bar.NextEnabled());

    bar.setNextEnabled(true);
    QTest::mouseClick(button(bar, "Forward"), Qt::LeftButton);
    EXPECT_EQ(next.count(), 1);
    bar.hide();
}

TEST_F(NavigationButtonsTest, eachEventRunsInsideABusySection)
{
    NavigationButtons bar;
    int cursorDuringEvent = -1;
    QObject::connect(&bar, &NavigationButtons::AcceptClick,
                     [&] { cursorDuringEvent = ui->cursor(); });
    button(bar, "Accept")->click();
    EXPECT_EQ(cursorDuringEvent, kHourglassCursor);
    EXPECT_EQ(ui->cursor(), kDefaultCursor);
    EXPECT_EQ(gWaitCount, 0);
}
