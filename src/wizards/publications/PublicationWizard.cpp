#include "wizards/publications/PublicationWizard.h"

#include "shell/frame/WizardPage.h"

PublicationWizard::PublicationWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "PublicationWizard", controlName, parent)
{
    makePage<WizardPage>("ShowPublications1", "Show");
}
