#include "shell/frame/WizardPage.h"

WizardPage::WizardPage(PageHost &parent, const QString &controlName, QWidget *widgetParent)
    : QWidget(widgetParent), m_parent(parent)
{
    setObjectName(controlName);
}
