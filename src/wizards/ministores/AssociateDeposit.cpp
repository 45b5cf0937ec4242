#include "wizards/ministores/AssociateDeposit.h"

#include "shell/frame/KeyedListView.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreAddition.h"

AssociateDeposit::AssociateDeposit(PageHost &parent, const QString &controlName,
                                   QWidget *widgetParent)
    : MinistoreSelectionPage(parent, controlName, widgetParent,
                             {"Asociar un Depósito Virtual a una Minitienda",
                              "Minitienda a asociar",
                              "Seleccione el Depósito Virtual a asociar con la Minitienda",
                              "&Depósitos Virtuales",
                              {QString::fromUtf8("Código"), QString::fromUtf8("Descripción"),
                               QString::fromUtf8("Dirección")},
                              "¿Desea abortar la operación?"})
{
}

std::pair<std::string, std::string> AssociateDeposit::chosenHalf(const MinistoreAddition &addition)
{
    if (!addition.ministore())
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    const ZorvantaMinistore &ministore = *addition.ministore();
    return {ministore.id() + " : " + ministore.name(), ministore.Description()};
}

void AssociateDeposit::fillRows(KeyedListView &list)
{
    for (const auto &deposit : depositsWithoutMinistore())
        list.addRow("un" + deposit->id(),
                    {deposit->id(), deposit->Description(), deposit->address()});
}

std::string AssociateDeposit::heldKey(const MinistoreAddition &addition)
{
    return addition.deposit() ? "un" + addition.deposit()->id() : std::string();
}

void AssociateDeposit::choose(MinistoreAddition &addition, const std::string &id)
{
    addition.setDeposit(sellerDeposits().item(id));
}
