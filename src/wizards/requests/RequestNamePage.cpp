#include "wizards/requests/RequestNamePage.h"

#include "shell/ErrorHandling.h"
#include "shell/frame/PageHost.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

RequestNamePage::RequestNamePage(PageHost &parent, const QString &controlName,
                                 QWidget *widgetParent, const char *caption)
    : RequestPage(parent, controlName, widgetParent, caption)
{
    m_text = new QLineEdit(this);
    m_text->setObjectName("Text1");
    content().addSpacing(12);
    content().addWidget(labelFor(m_text, "Label2", "&Nombre"));
    content().addWidget(m_text);
    content().addStretch();
}

void RequestNamePage::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_text->setText(QString::fromStdString(storedName()));
        m_text->setFocus();
    });
}

void RequestNamePage::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        storeName(m_text->text().toStdString());
        Parent().SwitchPage(nextKey());
    });
}
