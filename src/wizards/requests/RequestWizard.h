#pragma once

#include "shell/frame/WizardShell.h"

/// Leads the seller through a request to the marketplace for a new product under an existing
/// category, or for a new category with a first product: a menu, the category, the names,
/// the definition, the properties, the picture and a confirmation.
class RequestWizard : public WizardShell
{
    Q_OBJECT
public:
    RequestWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
