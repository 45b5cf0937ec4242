#include "shell/frame/WizardShell.h"

#include "shell/AppState.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/WizardPage.h"

WizardShell::WizardShell(HostWindow &host, const std::string &name, const QString &controlName,
                         QWidget *parent)
    : QWidget(parent), m_host(host), m_name(name)
{
    setObjectName(controlName);
}

void WizardShell::addPage(WizardPage *page, const std::string &key)
{
    page->setVisible(false);
    m_pageTable.emplace_back(key, page);
}

void WizardShell::Start()
{
    withHandler(m_name + ":Start", [&] {
        m_pages = Collection<WizardPage *>();
        for (const auto &[key, page] : m_pageTable) {
            m_pages.add(page, key);
            page->setVisible(false);
        }
        ResizeControls();
        if (!m_pageTable.empty())
            SwitchPage(m_pageTable.front().first);
    });
}

void WizardShell::SwitchPage(const std::string &key)
{
    withHandler(
        m_name + ":SwitchPage",
        [&] {
            BeginWait();
            if (key != "Exit" && key != "Stop") {
                HideAll();
                m_currentKey = key;
                ResizeControls();
                WizardPage *page = m_pages.item(key);
                page->setVisible(true);
                page->setFocus();
                page->Start();
                update();
            } else {
                m_host.ShowWizard(key);
            }
            EndWait();
        },
        [] { EndWait(); });
}

bool WizardShell::canStop()
{
    return withHandler(m_name + ":canStop", [&] { return m_pages.item(m_currentKey)->canStop(); });
}

void WizardShell::HideAll()
{
    if (m_currentKey.empty())
        return;
    m_pages.item(m_currentKey)->setVisible(false);
    m_currentKey.clear();
}

void WizardShell::ResizeControls()
{
    if (m_currentKey.empty())
        return;
    m_pages.item(m_currentKey)->setGeometry(0, 0, width(), height());
}

void WizardShell::resizeEvent(QResizeEvent *)
{
    guardEvent([&] { withHandler(m_name + ":ResizeControls", [&] { ResizeControls(); }); });
}
