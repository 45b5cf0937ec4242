#include "shell/window/StartupClass.h"

#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/ui/Ui.h"
#include "shell/AppState.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"
#include "stores/Seller.h"

namespace {

// The three outside links must answer before any window opens. Each check has reported its
// own error already when it answers false.
bool outsideLinksAnswer()
{
    if (!CommerceServerInit())
        return false;
    return QDXGetOperationConfiguration();
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
            if (!outsideLinksAnswer()) {
                EndWait();
                ui().msgBox("Ocurrió un error grave de conexión. Contacte al administrador o "
                            "reintente más tarde");
                gAppRunning = false;
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
