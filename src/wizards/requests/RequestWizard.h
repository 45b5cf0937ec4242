#pragma once

#include "shell/frame/WizardShell.h"

class RequestWizard : public WizardShell
{
    Q_OBJECT
public:
    RequestWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
