#include "wizards/associations/AssociationWizard.h"

#include "wizards/associations/AssociateSellerProduct.h"
#include "wizards/associations/AssociateZorvantaProduct.h"
#include "wizards/associations/AssociateZorvantaProperties.h"
#include "wizards/associations/ConfirmAssociationAddition.h"
#include "wizards/associations/ConfirmAssociationRemoval.h"
#include "wizards/associations/ShowAssociations.h"

AssociationWizard::AssociationWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "AssociationWizard", controlName, parent)
{
    makePage<ShowAssociations>("ShowAssociations1", "Show");
    makePage<AssociateSellerProduct>("AssociateSellerProduct1", "AssociateSellerProduct");
    makePage<AssociateZorvantaProduct>("AssociateZorvantaProduct1", "AssociateZorvantaProduct");
    makePage<AssociateZorvantaProperties>("AssociateZorvantaProperties1",
                                          "AssociateZorvantaProperties");
    makePage<ConfirmAssociationAddition>("ConfirmAssociationAddition1",
                                         "ConfirmAssociationAddition");
    makePage<ConfirmAssociationRemoval>("ConfirmAssociationRemoval1", "ConfirmAssociationRemoval");
}
