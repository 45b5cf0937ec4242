#pragma once

#include "shell/frame/WizardShell.h"

/// The empty panel on show when no wizard is: no pages, and it can always be left.
class StartScreen : public WizardShell
{
    Q_OBJECT
public:
    StartScreen(HostWindow &host, const QString &controlName, QWidget *parent);

    bool canStop() override { return true; }
};
