#include "wizards/associations/AssociationStepPage.h"

#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"

AssociationStepPage::AssociationStepPage(PageHost &parent, const QString &controlName,
                                         QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
}

bool AssociationStepPage::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("Desea abortar la operación?"); });
}

void AssociationStepPage::Cancel()
{
    if (!canStop())
        return;
    abandon();
    Parent().setOperation(nullptr);
    Parent().SwitchPage("Show");
}

NavigationButtons *AssociationStepPage::makeButtons()
{
    auto *buttons = new NavigationButtons(this);
    buttons->setObjectName("NavigationButtons1");
    onEvent(buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick",
            [this] { Cancel(); });
    return buttons;
}
