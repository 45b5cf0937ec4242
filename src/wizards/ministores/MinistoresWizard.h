#pragma once

#include "shell/frame/WizardShell.h"

class MinistoresWizard : public WizardShell
{
    Q_OBJECT
public:
    MinistoresWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
