#include "wizards/ministores/MinistoresWizard.h"

#include "shell/frame/WizardPage.h"

MinistoresWizard::MinistoresWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "MinistoresWizard", controlName, parent)
{
    makePage<WizardPage>("ShowMinistores1", "Show");
}
