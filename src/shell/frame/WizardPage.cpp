#include "shell/frame/WizardPage.h"

WizardPage::WizardPage(PageHost &parent, const QString &controlName, QWidget *widgetParent)
    : QWidget(widgetParent), m_parent(parent)
{
    setObjectName(controlName);
}

std::string WizardPage::handlerLabel(const char *procedure) const
{
    return std::string(metaObject()->className()) + ":" + procedure;
}
