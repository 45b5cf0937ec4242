#include "shell/window/StartupClass.h"

#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/ui/Ui.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"
#include "stores/Seller.h"

namespace {

// The three outside links must answer before any window opens. Each check has reported its
// own error already when it answers false. Reading the ministores is the first real call to
// the catalogue service; an empty list is an answer, only a null one is a failure.
bool outsideLinksAnswer()
{
    if (!CommerceServerInit())
        return false;
    if (!QDXGetOperationConfiguration())
        return false;
    return gSeller->ministores() != nullptr;
}

void closeSellerSession()
{
    if (gSeller.exists())
        gSeller->closeSession();
}

} // namespace

void StartupClass::StartWizard(bool &freePriceEntry)
{
    withDirectReport(
        [&] {
            BeginWait();
            gAppRunning = true;
            setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
            registerSellerListLines();
            if (!outsideLinksAnswer()) {
                EndWait();
                ui().msgBox("Ocurrió un error grave de conexión. Contacte al administrador o "
                            "reintente más tarde");
                gAppRunning = false;
                return;
            }
            // A fatal error during the checks (the ERP refusing the database's coordinates, say)
            // has told the seller that the assistant closes: no window may open after that.
            if (!gAppRunning) {
                EndWait();
                return;
            }
            gFreePriceEntry = freePriceEntry;
            auto *window = new MainWindow(makeWizardPanel, closeSellerSession);
            gMainWindow = window;
            EndWait();
            window->showModal();
        },
        [] { EndWait(); });
}
