#pragma once

#include "shell/frame/WizardShell.h"

/// Links ministores with virtual deposits and undoes such links: a list, two selection pages
/// and two confirmation pages.
class MinistoresWizard : public WizardShell
{
    Q_OBJECT
public:
    MinistoresWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
