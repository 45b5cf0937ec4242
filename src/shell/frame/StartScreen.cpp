#include "shell/frame/StartScreen.h"

StartScreen::StartScreen(HostWindow &host, const QString &controlName, QWidget *parent)
    : WizardShell(host, "StartScreen", controlName, parent)
{
}
