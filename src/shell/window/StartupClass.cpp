#include "shell/window/StartupClass.h"

#include "shell/AppState.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"

void StartupClass::StartWizard(bool &freePriceEntry)
{
    withDirectReport(
        [&] {
            BeginWait();
            gAppRunning = true;
            gFreePriceEntry = freePriceEntry;
            auto *window = new MainWindow(makeWizardPanel);
            gMainWindow = window;
            EndWait();
            window->showModal();
        },
        [] { EndWait(); });
}
