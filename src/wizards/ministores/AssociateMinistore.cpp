#include "wizards/ministores/AssociateMinistore.h"

#include "shell/frame/KeyedListView.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreAddition.h"

AssociateMinistore::AssociateMinistore(PageHost &parent, const QString &controlName,
                                       QWidget *widgetParent)
    : MinistoreSelectionPage(
          parent, controlName, widgetParent,
          {"Asociar una Minitienda a un Depósito Virtual",
           "Depósito Virtual a asociar",
           nullptr,
           "Se&leccione una Minitienda",
           {QString::fromUtf8("Código"), "Nombre", QString::fromUtf8("Descripción")},
           "Desea abortar la operación?"})
{
}

std::pair<std::string, std::string>
AssociateMinistore::chosenHalf(const MinistoreAddition &addition)
{
    if (!addition.deposit())
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    const VirtualDeposit &deposit = *addition.deposit();
    return {deposit.id() + " : " + deposit.Description(), deposit.address()};
}

void AssociateMinistore::fillRows(KeyedListView &list)
{
    for (const auto &ministore : ministoresWithoutDeposit())
        list.addRow("un" + ministore->id(),
                    {ministore->id(), ministore->name(), ministore->Description()});
}

std::string AssociateMinistore::heldKey(const MinistoreAddition &addition)
{
    return addition.ministore() ? "un" + addition.ministore()->id() : std::string();
}

void AssociateMinistore::choose(MinistoreAddition &addition, const std::string &id)
{
    addition.setMinistore(sellerMinistores().item(id));
}
