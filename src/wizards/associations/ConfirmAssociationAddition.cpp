#include "wizards/associations/ConfirmAssociationAddition.h"

#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationAddition.h"

ConfirmAssociationAddition::ConfirmAssociationAddition(PageHost &parent, const QString &controlName,
                                                       QWidget *widgetParent)
    : AssociationConfirmationPage(
          parent, controlName, widgetParent,
          {"Confirme la asociacion de productos", "Producto &DOVEL", "Producto &Feria Nubalia"})
{
}

void ConfirmAssociationAddition::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        const auto addition = requiredOperation<AssociationAddition>(Parent());
        if (addition->zorvantaDefinition() == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        showSides(addition->Product(), addition->zorvantaDefinition()->properties(),
                  addition->values());
    });
}

std::string ConfirmAssociationAddition::previousPage()
{
    const auto &product = requiredOperation<AssociationAddition>(Parent())->zorvantaDefinition();
    if (product == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    // The properties page would send the seller straight back here.
    return product->variantProperties()->empty() ? "AssociateZorvantaProduct"
                                                 : "AssociateZorvantaProperties";
}
