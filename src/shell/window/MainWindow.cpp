#include "shell/window/MainWindow.h"

#include "platform/ui/LoadedWindows.h"
#include "platform/ui/Ui.h"
#include "shell/BusyCursor.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/Twips.h"
#include "shell/frame/WizardShell.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QToolBar>

#include <filesystem>

namespace {

// Panels in the order the window adds them, with the key each is shown under.
const std::pair<const char *, const char *> kPanels[] = {
    {"Stop", "StartScreen1"},           {"Ministores", "MinistoresWizard1"},
    {"Associations", "AssociationWizard1"}, {"Publications", "PublicationWizard1"},
    {"Send", "SendWizard1"},            {"Request", "RequestWizard1"},
};

const char *keyOfFunctionKey(int key)
{
    switch (key) {
    case Qt::Key_F1: return "Help";
    case Qt::Key_F2: return "Ministores";
    case Qt::Key_F3: return "Associations";
    case Qt::Key_F4: return "Publications";
    case Qt::Key_F5: return "Send";
    case Qt::Key_F6: return "Request";
    case Qt::Key_Escape: return "Stop";
    case Qt::Key_F10: return "Exit";
    default: return nullptr;
    }
}

} // namespace

MainWindow::MainWindow(PanelFactory panels, std::function<void()> unloading)
    : m_panelFactory(std::move(panels)), m_unloading(std::move(unloading))
{
    setObjectName("MainWindow");
    setWindowTitle(QString::fromUtf8("Asistente de Publicación"));
    setAttribute(Qt::WA_DeleteOnClose);

    m_toolbar = new QToolBar(this);
    m_toolbar->setObjectName("Toolbar");
    m_toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    m_toolbar->setIconSize(QSize(32, 32));
    addToolbarButton("Minitiendas", "Ministores",
                     "Editar asociación de minitiendas con Depósitos Virtuales",
                     "Asociación de Minitiendas con Depósitos Virtuales", QStyle::SP_DirHomeIcon);
    addToolbarButton("Asociaciones", "Associations", "Asociación de productos con los de Zorvanta",
                     "Asociación de productos con los de Zorvanta", QStyle::SP_FileDialogContentsView);
    addToolbarButton("Publicaciones", "Publications", "Publicar productos en Zorvanta",
                     "Publicar productos en Zorvanta", QStyle::SP_FileDialogDetailedView);
    addToolbarButton("Enviar", "Send", "Sincronizar las publicaciones con el servidor",
                     "Sincronizar las publicaciones con el servidor", QStyle::SP_BrowserReload);
    addToolbarButton("Nuevo Prod.", "Request", "", "", QStyle::SP_FileDialogNewFolder);
    addToolbarButton("Ayuda", "Help", "Ayuda", "Ayuda", QStyle::SP_DialogHelpButton);
    addToolbarButton("Salir", "Exit", "Salir", "Salir", QStyle::SP_DialogCloseButton);

    for (const auto &[key, controlName] : kPanels) {
        WizardShell *panel = m_panelFactory(controlName, *this, this);
        panel->setVisible(false);
    }
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow()
{
    if (gMainWindow == this)
        gMainWindow = nullptr;
}

void MainWindow::addToolbarButton(const char *caption, const char *key, const char *description,
                                  const char *toolTip, int icon)
{
    QAction *action = m_toolbar->addAction(
        style()->standardIcon(static_cast<QStyle::StandardPixmap>(icon)),
        QString::fromUtf8(caption));
    action->setObjectName(key);
    action->setStatusTip(QString::fromUtf8(description));
    action->setToolTip(QString::fromUtf8(toolTip));
    const std::string buttonKey = key;
    connect(action, &QAction::triggered, this,
            [this, buttonKey] { guardEvent([&] { ShowWizard(buttonKey); }); });
}

QRect MainWindow::geometryFor(const QSize &screen)
{
    const double screenHeight = pixelsToTwips(screen.height());
    const double screenWidth = pixelsToTwips(screen.width());
    const double height = MaxOf(9000, screenHeight - 1000);
    const double width = MaxOf(12000, screenWidth - 2000);
    const double top = MaxOf(0, (screenHeight - height) / 2);
    const double left = MaxOf(0, (screenWidth - width) / 2);
    return {twipsToPixels(left), twipsToPixels(top), twipsToPixels(width), twipsToPixels(height)};
}

void MainWindow::showModal()
{
    QPointer<MainWindow> self(this);
    loadAndShow();
    if (!self || !isVisible())
        return;
    QEventLoop loop;
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

void MainWindow::loadAndShow()
{
    LoadedWindows::instance().load(*this);
    setWindowModality(Qt::ApplicationModal);
    Form_Load();
    if (!m_unloaded)
        show();
}

void MainWindow::Form_Load()
{
    withHandler(
        "MainWindow:Form_Load",
        [&] {
            BeginWait();
            const QScreen *screen = QGuiApplication::primaryScreen();
            setGeometry(geometryFor(screen ? screen->size() : QSize(800, 600)));
            for (const auto &[key, controlName] : kPanels) {
                auto *panel = findChild<WizardShell *>(controlName, Qt::FindDirectChildrenOnly);
                m_pages.add(panel, std::string(key));
                panel->setVisible(false);
            }
            m_loaded = true;
            ResizeControls();
            HideAll();
            ShowWizard("Stop");
            EndWait();
        },
        [] { EndWait(); });
}

void MainWindow::ShowWizard(const std::string &key)
{
    withHandler(
        "MainWindow:ShowWizard",
        [&] {
            BeginWait();
            bool mayLeave = true;
            if (key == m_currentKey)
                mayLeave = false;
            else if (!m_currentKey.empty())
                mayLeave = m_pages.item(m_currentKey)->canStop();

            if (key == m_currentKey) {
                // A second press of the button on show does nothing at all.
            } else if (key == "Help") {
                ShowHelp();
            } else if (mayLeave) {
                if (key == "Exit") {
                    unload();
                    EndWait();
                    return;
                }
                HideAll();
                m_currentKey = key;
                WizardShell *panel = m_pages.item(key);
                panel->setVisible(true);
                if (key != "Stop")
                    panel->setFocus();
                panel->Start();
                ResizeControls();
            }
            EndWait();
        },
        [] { EndWait(); });
}

void MainWindow::HideAll()
{
    withHandler("MainWindow:HideAll", [&] {
        if (m_currentKey.empty())
            return;
        m_pages.item(m_currentKey)->setVisible(false);
        m_currentKey.clear();
    });
}

void MainWindow::ResizeControls()
{
    withHandler("MainWindow:ResizeControls", [&] {
        m_toolbar->setGeometry(0, 0, width(), m_toolbar->sizeHint().height());
        if (m_currentKey.empty())
            return;
        const double top = pixelsToTwips(m_toolbar->height()) + 50;
        const double height = MaxOf(0, pixelsToTwips(this->height()) - top - 450);
        const double width = pixelsToTwips(this->width()) - 100;
        m_pages.item(m_currentKey)
            ->setGeometry(0, twipsToPixels(top), twipsToPixels(width), twipsToPixels(height));
    });
}

void MainWindow::ShowHelp()
{
    withHandler("MainWindow:ShowHelp", [&] {
        // The help pages sit in docs/ of the working folder; an installed assistant, run from
        // the seller's own folder, finds the copy its package put in the shared data folders.
        std::string page = std::filesystem::current_path().string() + "/docs/index.htm";
        std::error_code unreadable;
        if (!std::filesystem::exists(page, unreadable)) {
            const QString installed = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                             "asistente/docs/index.htm");
            if (!installed.isEmpty())
                page = installed.toStdString();
        }
        m_helpBrowser = "file://" + page;
        ui().openUrl(m_helpBrowser);
    });
}

void MainWindow::unload()
{
    close();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // The close box does not ask the panel on show: only ShowWizard("Exit") does.
    guardEvent([&] { Form_Unload(); });
    event->accept();
}

void MainWindow::Form_Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    LoadedWindows::instance().unload(*this);
    qApp->removeEventFilter(this);
    if (m_unloading)
        withHandler("MainWindow:Form_Unload", [&] { m_unloading(); });
}

void MainWindow::resizeEvent(QResizeEvent *)
{
    if (m_loaded)
        guardEvent([&] { ResizeControls(); });
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyRelease || !watched->isWidgetType())
        return false;
    if (static_cast<QWidget *>(watched)->window() != this)
        return false;
    const auto *keyEvent = static_cast<QKeyEvent *>(event);
    if (keyEvent->isAutoRepeat() || keyEvent->modifiers() != Qt::NoModifier)
        return false;
    if (const char *key = keyOfFunctionKey(keyEvent->key())) {
        guardEvent([&] { ShowWizard(key); });
        return true;
    }
    return false;
}
