#pragma once

#include <QString>

class HostWindow;
class QWidget;
class WizardShell;

/// The six panels of the assistant's window, by control name.
WizardShell *makeWizardPanel(const QString &controlName, HostWindow &host, QWidget *parent);
