#include "wizards/ministores/MinistoresWizard.h"

#include "wizards/ministores/AssociateDeposit.h"
#include "wizards/ministores/AssociateMinistore.h"
#include "wizards/ministores/ConfirmMinistoreAddition.h"
#include "wizards/ministores/ConfirmMinistoreRemoval.h"
#include "wizards/ministores/ShowMinistores.h"

MinistoresWizard::MinistoresWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "MinistoresWizard", controlName, parent)
{
    makePage<ShowMinistores>("ShowMinistores1", "Show");
    makePage<AssociateMinistore>("AssociateMinistore1", "AssociateMinistore");
    makePage<AssociateDeposit>("AssociateDeposit1", "AssociateDeposit");
    makePage<ConfirmMinistoreAddition>("ConfirmMinistoreAddition1", "ConfirmMinistoreAssociation");
    makePage<ConfirmMinistoreRemoval>("ConfirmMinistoreRemoval1", "ConfirmMinistoreRemoval");
}
