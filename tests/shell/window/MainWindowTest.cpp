#include "ShellTest.h"
#include "TestPanels.h"

#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/window/MainWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <fstream>

namespace {

/// Every panel of the window is a two-page wizard the test can look into.
class MainWindowTest : public ShellTest
{
protected:
    // The shared data folders, where an installed assistant keeps its help pages, are the
    // test's own and empty: the machine's installed package does not answer F1 here.
    void SetUp() override
    {
        ShellTest::SetUp();
        ASSERT_TRUE(m_sharedData.isValid());
        for (const char *variable : {"XDG_DATA_HOME", "XDG_DATA_DIRS"}) {
            m_previousEnvironment.emplace_back(variable, qgetenv(variable));
            qputenv(variable, m_sharedData.path().toUtf8());
        }
    }
    void TearDown() override
    {
        for (const auto &[variable, value] : m_previousEnvironment) {
            if (value.isNull())
                qunsetenv(variable);
            else
                qputenv(variable, value);
        }
        ShellTest::TearDown();
    }
    std::filesystem::path sharedData() const { return m_sharedData.path().toStdString(); }

    MainWindow *openWindow()
    {
        auto *window = new MainWindow(
            [](const QString &name, HostWindow &host, QWidget *parent) -> WizardShell * {
                return new TwoPageWizard(host, name, parent);
            },
            [this] { ++unloads; });
        gMainWindow = window;
        window->loadAndShow();
        return window;
    }
    TwoPageWizard *panel(MainWindow *window, const char *name)
    {
        return window->findChild<TwoPageWizard *>(name);
    }
    void release(MainWindow *window, Qt::Key key) { QTest::keyRelease(window, key); }

    int unloads = 0;

private:
    QTemporaryDir m_sharedData;
    std::vector<std::pair<const char *, QByteArray>> m_previousEnvironment;
};

void writeHelpPage(const std::filesystem::path &folder)
{
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "index.htm") << "<html><body>Ayuda</body></html>";
}

} // namespace

TEST_F(MainWindowTest, opensOnTheStartPanelWithItsCaptionAndToolbar)
{
    MainWindow *window = openWindow();
    EXPECT_EQ(window->windowTitle().toStdString(), "Asistente de Publicación");
    EXPECT_EQ(window->currentPageKey(), "Stop");

    const auto actions = window->findChild<QToolBar *>("Toolbar")->actions();
    std::vector<std::string> captions, keys;
    for (QAction *action : actions) {
        captions.push_back(action->text().toStdString());
        keys.push_back(action->objectName().toStdString());
    }
    EXPECT_EQ(captions, (std::vector<std::string>{"Minitiendas", "Asociaciones", "Publicaciones",
                                                  "Enviar", "Nuevo Prod.", "Ayuda", "Salir"}));
    EXPECT_EQ(keys, (std::vector<std::string>{"Ministores", "Associations", "Publications", "Send",
                                              "Request", "Help", "Exit"}));
    EXPECT_EQ(actions[0]->toolTip().toStdString(),
              "Asociación de Minitiendas con Depósitos Virtuales");
    EXPECT_EQ(actions[0]->statusTip().toStdString(),
              "Editar asociación de minitiendas con Depósitos Virtuales");
    EXPECT_EQ(gWaitCount, 0);
    window->close();
}

TEST_F(MainWindowTest, functionKeysAndToolbarMoveAmongThePanels)
{
    MainWindow *window = openWindow();
    const std::pair<Qt::Key, const char *> routes[] = {
        {Qt::Key_F2, "Ministores"}, {Qt::Key_F3, "Associations"}, {Qt::Key_F4, "Publications"},
        {Qt::Key_F5, "Send"},       {Qt::Key_F6, "Request"},      {Qt::Key_Escape, "Stop"}};
    for (const auto &[key, panelKey] : routes) {
        release(window, key);
        EXPECT_EQ(window->currentPageKey(), panelKey);
    }
    window->findChild<QToolBar *>("Toolbar")->actions()[2]->trigger();
    EXPECT_EQ(window->currentPageKey(), "Publications");
    EXPECT_TRUE(panel(window, "PublicationWizard1")->isVisible());
    EXPECT_FALSE(panel(window, "StartScreen1")->isVisible());
    window->close();
}

TEST_F(MainWindowTest, theSameKeyTwiceDoesNothingAtAll)
{
    MainWindow *window = openWindow();
    release(window, Qt::Key_F2);
    TwoPageWizard *ministores = panel(window, "MinistoresWizard1");
    ASSERT_EQ(ministores->first->starts, 1);

    release(window, Qt::Key_F2);
    EXPECT_EQ(ministores->first->starts, 1);
    EXPECT_EQ(ministores->first->stopQuestions, 0);
    window->close();
}

TEST_F(MainWindowTest, helpAsksThePanelButKeepsItOnShow)
{
    MainWindow *window = openWindow();
    release(window, Qt::Key_F2);
    TwoPageWizard *ministores = panel(window, "MinistoresWizard1");
    ministores->first->mayStop = false;

    release(window, Qt::Key_F1);
    EXPECT_EQ(ministores->first->stopQuestions, 1);
    EXPECT_EQ(window->currentPageKey(), "Ministores");
    ASSERT_EQ(ui->openedUrls().size(), 1u);
    EXPECT_EQ(ui->openedUrls()[0],
              "file://" + std::filesystem::current_path().string() + "/docs/index.htm");
    EXPECT_EQ(window->helpBrowser(), ui->openedUrls()[0]);
    window->close();
}

TEST_F(MainWindowTest, helpOpensTheWorkingFoldersPagesElseTheInstalledOnes)
{
    const std::filesystem::path beside = std::filesystem::current_path() / "docs" / "index.htm";
    const std::filesystem::path installed = sharedData() / "asistente" / "docs" / "index.htm";
    struct Row
    {
        const char *name;
        bool pagesBeside;
        bool pagesInstalled;
        std::filesystem::path opened;
    };
    const Row rows[] = {
        {"the pages in the seller's folder win over the installed ones", true, true, beside},
        {"an installed assistant run from a folder without pages opens the installed ones", false,
         true, installed},
        {"with pages nowhere the seller's folder is still where it looks", false, false, beside},
    };
    MainWindow *window = openWindow();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::filesystem::remove_all(beside.parent_path());
        std::filesystem::remove_all(sharedData() / "asistente");
        if (row.pagesBeside)
            writeHelpPage(beside.parent_path());
        if (row.pagesInstalled)
            writeHelpPage(installed.parent_path());

        release(window, Qt::Key_F1);
        ASSERT_FALSE(ui->openedUrls().empty());
        EXPECT_EQ(ui->openedUrls().back(), "file://" + row.opened.string());
    }
    window->close();
}

TEST_F(MainWindowTest, aRefusingPanelKeepsTheWindowOpenButTheCloseBoxStillCloses)
{
    QPointer<MainWindow> window = openWindow();
    release(window, Qt::Key_F2);
    panel(window, "MinistoresWizard1")->first->mayStop = false;

    release(window, Qt::Key_F10);
    EXPECT_TRUE(window->isVisible());
    release(window, Qt::Key_Escape);
    EXPECT_EQ(window->currentPageKey(), "Ministores");
    EXPECT_EQ(unloads, 0);

    window->close(); // the close box asks nobody
    EXPECT_EQ(unloads, 1);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(gMainWindow, nullptr);
}

TEST_F(MainWindowTest, exitFromAPageLeavesThroughTheSameRule)
{
    QPointer<MainWindow> window = openWindow();
    release(window, Qt::Key_F3);
    panel(window, "AssociationWizard1")->SwitchPage("Exit");
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindowTest, anUnknownKeyIsAFatalErrorThatClosesTheWindow)
{
    QPointer<MainWindow> window = openWindow();
    window->ShowWizard("Catalogo");
    EXPECT_NE(logLines().at(0).find("(MainWindow:ShowWizard)"), std::string::npos);
    EXPECT_EQ(ui->boxTexts().back(), "La aplicación será cerrada");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(unloads, 1);
    EXPECT_EQ(gWaitCount, 0);
}

TEST_F(MainWindowTest, aPageAskingToStopStaysWhenItsOwnAnswerIsNo)
{
    MainWindow *window = openWindow();
    release(window, Qt::Key_F2);
    TwoPageWizard *ministores = panel(window, "MinistoresWizard1");
    ministores->first->mayStop = false;

    ministores->SwitchPage("Stop");
    EXPECT_EQ(window->currentPageKey(), "Ministores");
    EXPECT_TRUE(ministores->isVisible());
    EXPECT_EQ(ministores->first->stopQuestions, 1);

    ministores->first->mayStop = true;
    ministores->SwitchPage("Stop");
    EXPECT_EQ(window->currentPageKey(), "Stop");
    EXPECT_FALSE(ministores->isVisible());
    window->close();
}

namespace {

/// A dialog that notes when it is unloaded.
class RecordingDialog : public QDialog
{
public:
    explicit RecordingDialog(std::vector<std::string> &unloaded) : m_unloaded(unloaded) {}

protected:
    void closeEvent(QCloseEvent *event) override
    {
        m_unloaded.push_back("dialog");
        QDialog::closeEvent(event);
    }

private:
    std::vector<std::string> &m_unloaded;
};

} // namespace

TEST_F(MainWindowTest, aFatalErrorInsideADialogUnloadsTheDialogThenTheWindow)
{
    std::vector<std::string> unloaded;
    auto *window = new MainWindow(
        [](const QString &name, HostWindow &host, QWidget *parent) -> WizardShell * {
            return new TwoPageWizard(host, name, parent);
        },
        [&] { unloaded.push_back("window"); });
    gMainWindow = window;
    window->loadAndShow();
    RecordingDialog dialog(unloaded);
    dialog.setObjectName("ValidateUserForm");
    ui->queueDialog([](QDialog &) {
        withHandler("Prueba:OK_Click", [] { raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet); });
        return false;
    });

    ui->runModal(dialog);

    EXPECT_EQ(unloaded, (std::vector<std::string>{"dialog", "window"}));
    EXPECT_EQ(ui->seen(),
              (std::vector<std::string>{
                  "[ValidateUserForm]",
                  "Error: 91: Error de la aplicación. Contacte al administrador del sistema",
                  "La aplicación será cerrada"}));
    EXPECT_EQ(gMainWindow, nullptr);
}

TEST(MainWindowGeometry, aSmallScreenGivesTheMinimumSizeAtTheCorner)
{
    EXPECT_EQ(MainWindow::geometryFor(QSize(600, 400)), QRect(0, 0, 800, 600));
}

TEST(MainWindowGeometry, aLargeScreenGivesACentredWindowAMarginSmaller)
{
    const QRect geometry = MainWindow::geometryFor(QSize(1920, 1080));
    EXPECT_EQ(geometry.width(), 1920 - 133);
    EXPECT_EQ(geometry.height(), 1080 - 67);
    EXPECT_EQ(geometry.left(), 67);
    EXPECT_EQ(geometry.top(), 33);
}
