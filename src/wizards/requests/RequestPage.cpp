#include "wizards/requests/RequestPage.h"

#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

RequestPage::RequestPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                         const char *caption)
    : WizardPage(parent, controlName, widgetParent)
{
    m_frame = new QGroupBox(this);
    m_frame->setObjectName("Frame1");
    m_title = new QLabel(m_frame);
    m_title->setObjectName("Label1");
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_title->setWordWrap(true);
    setCaption(caption);
    m_content = new QVBoxLayout(m_frame);
    m_content->addWidget(m_title);

    m_buttons = new NavigationButtons(this);
    m_buttons->setAcceptEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(m_frame, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoRequest(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick", [this] {
        beforeBack();
        Parent().SwitchPage(backKey());
    });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick", [this] {
        beforeCancel();
        if (!canStop())
            return;
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}

void RequestPage::setCaption(const char *caption)
{
    m_frame->setTitle(QString::fromUtf8(caption));
    m_title->setText(QString::fromUtf8(caption));
}

QLabel *RequestPage::labelFor(QWidget *control, const char *name, const char *text)
{
    auto *label = new QLabel(QString::fromUtf8(text), this);
    label->setObjectName(name);
    label->setBuddy(control);
    return label;
}

bool RequestPage::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("Desea abortar la operación?"); });
}
