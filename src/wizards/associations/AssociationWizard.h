#pragma once

#include "shell/frame/WizardShell.h"

class AssociationWizard : public WizardShell
{
    Q_OBJECT
public:
    AssociationWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
