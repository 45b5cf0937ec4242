#include "wizards/ministores/ConfirmMinistoreAddition.h"

#include "shell/frame/PageHost.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreAddition.h"

ConfirmMinistoreAddition::ConfirmMinistoreAddition(PageHost &parent, const QString &controlName,
                                                   QWidget *widgetParent)
    : MinistoreConfirmationPage(parent, controlName, widgetParent,
                                "Confirme la Asociación de la Minitienda con el Depósito Virtual")
{
}

std::shared_ptr<VirtualDeposit> ConfirmMinistoreAddition::deposit()
{
    return requiredOperation<MinistoreAddition>(Parent())->deposit();
}

std::shared_ptr<ZorvantaMinistore> ConfirmMinistoreAddition::ministore()
{
    return requiredOperation<MinistoreAddition>(Parent())->ministore();
}

std::string ConfirmMinistoreAddition::previousPage()
{
    return requiredOperation<MinistoreAddition>(Parent())->startedWithMinistore()
               ? "AssociateMinistore"
               : "AssociateDeposit";
}
