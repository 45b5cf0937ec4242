#pragma once

#include "shell/frame/WizardShell.h"

class PublicationWizard : public WizardShell
{
    Q_OBJECT
public:
    PublicationWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
