#include "CtlSession.h"

#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/ui/Ui.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"

#include <algorithm>

CtlSession::CtlSession()
{
    gAppRunning = true;
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
}

CtlSession::~CtlSession()
{
    if (gSeller.exists() && gAppRunning)
        gSeller->closeSession();
}

bool CtlSession::openLinks()
{
    // Each check has reported its own error when it answers false.
    if (CommerceServerInit() && QDXGetOperationConfiguration() && gSeller->ministores())
        return true;
    ui().msgBox("Ocurrió un error grave de conexión. Contacte al administrador o reintente más "
                "tarde");
    return false;
}

std::vector<std::shared_ptr<ZorvantaMinistore>>
CtlSession::linkedMinistores(const std::string &only)
{
    std::vector<std::shared_ptr<ZorvantaMinistore>> linked;
    const std::shared_ptr<VirtualDeposits> deposits = gSeller->virtualDeposits();
    if (!deposits)
        return linked;
    for (const std::shared_ptr<VirtualDeposit> &deposit : *deposits) {
        const std::shared_ptr<ZorvantaMinistore> &store = deposit->ministore();
        if (!store || (!only.empty() && store->id() != only))
            continue;
        const auto sameId = [&](const auto &known) { return known->id() == store->id(); };
        if (std::none_of(linked.begin(), linked.end(), sameId))
            linked.push_back(store);
    }
    return linked;
}
