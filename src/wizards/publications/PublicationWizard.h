#pragma once

#include "shell/frame/WizardShell.h"

/// Publishes associated products in the seller's ministores, modifies and withdraws them: the
/// list of publications, three pages that build an operation and its confirmation.
class PublicationWizard : public WizardShell
{
    Q_OBJECT
public:
    PublicationWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
