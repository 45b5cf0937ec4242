#pragma once

#include "shell/AppState.h"
#include "shell/Collection.h"

#include <QWidget>

#include <functional>
#include <string>

class QToolBar;
class WizardShell;

/// Makes the panel called `controlName` ("StartScreen1", "MinistoresWizard1", ...) for `host`.
using PanelFactory =
    std::function<WizardShell *(const QString &controlName, HostWindow &host, QWidget *parent)>;

/// The window of the assistant: a toolbar and six panels, of which one is on show. Panels change
/// only through ShowWizard, from the toolbar, the function keys or the panels themselves.
class MainWindow : public QWidget, public HostWindow
{
    Q_OBJECT
public:
    /// `unloading` runs once when the window goes, whichever way it is closed.
    explicit MainWindow(PanelFactory panels, std::function<void()> unloading = {});
    ~MainWindow() override;

    /// Sizes, centres and fills the window, shows it, and returns when it has been unloaded.
    void showModal();
    /// The same without waiting: the window is loaded and on show when this returns.
    void loadAndShow();

    void ShowWizard(const std::string &key) override;
    void unload() override;

    std::string currentPageKey() const { return m_currentKey; }
    /// The address the last ShowHelp opened.
    std::string helpBrowser() const { return m_helpBrowser; }

    /// Window geometry in pixels for a screen of `screen` pixels: at least 12000 by 9000 twips,
    /// centred, never above or left of the screen's corner.
    static QRect geometryFor(const QSize &screen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void Form_Load();
    void Form_Unload();
    void HideAll();
    void ResizeControls();
    void ShowHelp();
    void addToolbarButton(const char *caption, const char *key, const char *description,
                          const char *toolTip, int icon);

    PanelFactory m_panelFactory;
    std::function<void()> m_unloading;
    QToolBar *m_toolbar = nullptr;
    Collection<WizardShell *> m_pages;
    std::string m_currentKey;
    std::string m_helpBrowser;
    bool m_loaded = false;
    bool m_unloaded = false;
};
