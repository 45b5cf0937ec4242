#include "wizards/ministores/FreeStores.h"

#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"

Ministores &sellerMinistores()
{
    const auto ministores = gSeller->ministores();
    if (!ministores)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *ministores;
}

VirtualDeposits &sellerDeposits()
{
    const auto deposits = gSeller->virtualDeposits();
    if (!deposits)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *deposits;
}

Ministores ministoresWithoutDeposit()
{
    Ministores free;
    for (const auto &ministore : sellerMinistores())
        free.add(ministore, ministore->id());
    for (const auto &deposit : sellerDeposits()) {
        if (deposit->ministore())
            free.remove(deposit->ministore()->id());
    }
    return free;
}

VirtualDeposits depositsWithoutMinistore()
{
    VirtualDeposits free;
    for (const auto &deposit : sellerDeposits()) {
        if (!deposit->ministore())
            free.add(deposit, deposit->id());
    }
    return free;
}

std::string idOfRowKey(const std::string &rowKey)
{
    // Both prefixes have two characters.
    return rowKey.size() < 2 ? std::string() : rowKey.substr(2);
}
