#pragma once

#include "shell/Collection.h"
#include "shell/frame/PageHost.h"

#include <QWidget>

#include <string>
#include <vector>

class HostWindow;
class WizardPage;

/// A panel of the main window: a wizard that owns its pages, one of which is on show, and the
/// operation those pages are building. The start screen is a shell with no pages.
class WizardShell : public QWidget, public PageHost
{
    Q_OBJECT
public:
    /// `name` is the wizard's class name, which its error labels carry.
    WizardShell(HostWindow &host, const std::string &name, const QString &controlName,
                QWidget *parent);

    /// Builds the page collection anew and shows the first page. The operation is kept, so a
    /// wizard entered again finds what its last run left.
    virtual void Start();
    void SwitchPage(const std::string &key) override;
    /// The current page's answer; false, through the failure path, with no current page.
    virtual bool canStop();

    std::shared_ptr<Operation> operation() const override { return m_operation; }
    void setOperation(std::shared_ptr<Operation> operation) override
    {
        m_operation = std::move(operation);
    }

    std::string currentPageKey() const { return m_currentKey; }

protected:
    /// Declares the next page of the wizard, in the order Start adds them; the first is shown
    /// first.
    void addPage(WizardPage *page, const std::string &key);
    /// Makes a page of this wizard as a child of the shell, hidden until it comes up.
    template <class Page, class... Args>
    Page *makePage(const QString &controlName, const std::string &key, Args &&...args)
    {
        auto *page = new Page(*this, controlName, this, std::forward<Args>(args)...);
        addPage(page, key);
        return page;
    }

    const std::string &name() const { return m_name; }
    void resizeEvent(QResizeEvent *event) override;

private:
    void HideAll();
    void ResizeControls();

    HostWindow &m_host;
    std::string m_name;
    std::vector<std::pair<std::string, WizardPage *>> m_pageTable;
    Collection<WizardPage *> m_pages;
    std::string m_currentKey;
    std::shared_ptr<Operation> m_operation;
};
