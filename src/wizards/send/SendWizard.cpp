#include "wizards/send/SendWizard.h"

#include "shell/frame/WizardPage.h"

SendWizard::SendWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "SendWizard", controlName, parent)
{
    makePage<WizardPage>("ShowPendingPublications1", "Show");
}
