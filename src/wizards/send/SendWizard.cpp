#include "wizards/send/SendWizard.h"

#include "wizards/send/ShowPendingPublications.h"

SendWizard::SendWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "SendWizard", controlName, parent)
{
    makePage<ShowPendingPublications>("ShowPendingPublications1", "Show");
}
