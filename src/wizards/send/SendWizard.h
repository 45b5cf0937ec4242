#pragma once

#include "shell/frame/WizardShell.h"

class SendWizard : public WizardShell
{
    Q_OBJECT
public:
    SendWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
