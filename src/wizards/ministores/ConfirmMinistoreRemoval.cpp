#include "wizards/ministores/ConfirmMinistoreRemoval.h"

#include "shell/frame/PageHost.h"
#include "stores/VirtualDeposit.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreRemove.h"

ConfirmMinistoreRemoval::ConfirmMinistoreRemoval(PageHost &parent, const QString &controlName,
                                                 QWidget *widgetParent)
    : MinistoreConfirmationPage(parent, controlName, widgetParent,
                                "Confirme Eliminación de Minitienda")
{
}

std::shared_ptr<VirtualDeposit> ConfirmMinistoreRemoval::deposit()
{
    return requiredOperation<MinistoreRemove>(Parent())->deposit();
}

std::shared_ptr<ZorvantaMinistore> ConfirmMinistoreRemoval::ministore()
{
    const auto removed = deposit();
    if (!removed)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return removed->ministore();
}
