#pragma once

#include "shell/frame/WizardPage.h"

#include <string>

class NavigationButtons;
class QGroupBox;
class QLabel;
class QVBoxLayout;

/// A page of the request wizard past its menu: a frame headed by the page's caption, the
/// navigation bar at its foot, Back to the page before, Next to the page's own DoRequest, and
/// Cancel, which asks first and then drops the request and returns to the menu.
class RequestPage : public WizardPage
{
    Q_OBJECT
public:
    /// Asks the user whether to abandon the request.
    bool canStop() override;

protected:
    RequestPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                const char *caption);

    /// Where the page's controls go, under the caption.
    QVBoxLayout &content() const { return *m_content; }
    NavigationButtons &buttons() const { return *m_buttons; }
    void setCaption(const char *caption);
    /// A label for `control` that gives it the focus by its access key.
    QLabel *labelFor(QWidget *control, const char *name, const char *text);

    /// Next: stores what the page holds in the request and goes on.
    virtual void DoRequest() = 0;
    /// The key Back goes to.
    virtual std::string backKey() = 0;
    /// Runs before Back leaves the page.
    virtual void beforeBack() {}
    /// Runs before Cancel asks anything.
    virtual void beforeCancel() {}

private:
    QGroupBox *m_frame;
    QLabel *m_title;
    QVBoxLayout *m_content;
    NavigationButtons *m_buttons;
};
