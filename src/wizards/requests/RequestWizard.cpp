#include "wizards/requests/RequestWizard.h"

#include "shell/frame/WizardPage.h"

RequestWizard::RequestWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "RequestWizard", controlName, parent)
{
    makePage<WizardPage>("RequestMenu1", "Show");
}
