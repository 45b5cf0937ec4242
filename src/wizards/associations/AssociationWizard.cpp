#include "wizards/associations/AssociationWizard.h"

#include "shell/frame/WizardPage.h"

AssociationWizard::AssociationWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "AssociationWizard", controlName, parent)
{
    makePage<WizardPage>("ShowAssociations1", "Show");
}
