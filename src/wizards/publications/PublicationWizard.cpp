#include "wizards/publications/PublicationWizard.h"

#include "shell/frame/WizardPage.h"
#include "wizards/publications/ConfirmPublication.h"
#include "wizards/publications/PublishAssociatedProduct.h"
#include "wizards/publications/PublishAssociationNC.h"
#include "wizards/publications/PublishSelectMinistore.h"
#include "wizards/publications/ShowPublications.h"

PublicationWizard::PublicationWizard(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "PublicationWizard", controlName, parent)
{
    makePage<ShowPublications>("ShowPublications1", "Show");
    makePage<PublishAssociatedProduct>("PublishAssociatedProduct1", "PublishAssociatedProduct");
    makePage<PublishAssociationNC>("PublishAssociationNC1", "PublishAssociationNC");
    makePage<PublishSelectMinistore>("PublishSelectMinistore1", "PublishSelectMinistore");
    makePage<ConfirmPublication>("ConfirmPublication1", "ConfirmPublication");
}
