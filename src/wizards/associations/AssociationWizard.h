#pragma once

#include "shell/frame/WizardShell.h"

/// Binds ERP products to marketplace products and undoes such bindings: the list of
/// associations, three pages that choose a new one, and two confirmation pages.
class AssociationWizard : public WizardShell
{
    Q_OBJECT
public:
    AssociationWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
