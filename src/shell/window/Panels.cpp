#include "shell/window/Panels.h"

#include "platform/core/RaisedError.h"
#include "shell/frame/StartScreen.h"
#include "wizards/associations/AssociationWizard.h"
#include "wizards/ministores/MinistoresWizard.h"
#include "wizards/publications/PublicationWizard.h"
#include "wizards/requests/RequestWizard.h"
#include "wizards/send/SendWizard.h"

WizardShell *makeWizardPanel(const QString &controlName, HostWindow &host, QWidget *parent)
{
    if (controlName == "StartScreen1")
        return new StartScreen(host, controlName, parent);
    if (controlName == "MinistoresWizard1")
        return new MinistoresWizard(host, controlName, parent);
    if (controlName == "AssociationWizard1")
        return new AssociationWizard(host, controlName, parent);
    if (controlName == "PublicationWizard1")
        return new PublicationWizard(host, controlName, parent);
    if (controlName == "SendWizard1")
        return new SendWizard(host, controlName, parent);
    if (controlName == "RequestWizard1")
        return new RequestWizard(host, controlName, parent);
    raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
}
