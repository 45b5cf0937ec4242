#pragma once

#include "shell/frame/WizardShell.h"

/// Sends what the other wizards queued for the marketplace: one page, the list of what waits.
class SendWizard : public WizardShell
{
    Q_OBJECT
public:
    SendWizard(HostWindow &host, const QString &controlName, QWidget *parent);
};
