#include "AssistantSandbox.h"
#include "shell/AppState.h"
#include "shell/window/StartupClass.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using StartupRefusalTest = AssistantSandbox;

const char *const kFatalConnection =
    "Ocurrió un error grave de conexión. Contacte al administrador o reintente más tarde";

} // namespace

// The fixture's back office fails the limits on the first run only, and the stores always.
TEST_F(StartupRefusalTest, theLimitsAndThenTheStoresFailingEachEndTheStartWithTheFatalMessage)
{
    struct Run
    {
        const char *name;
        std::vector<std::string> boxes;
        bool stillRunning;
    };
    const Run runs[] = {
        {"the limits cannot be read: the connector's code closes, then the message",
         {"Error: -2045: Error de la aplicación. Contacte al administrador del sistema",
          "La aplicación será cerrada", kFatalConnection},
         false},
        {"the seller's stores cannot be read: the inner error, then the message",
         {"Error: -8500: Error de la aplicación. Contacte al administrador del sistema",
          kFatalConnection},
         false},
    };
    for (const Run &run : runs) {
        SCOPED_TRACE(run.name);
        resetAssistant();
        ui->clearBoxes();
        bool freePriceEntry = false;
        StartupClass().StartWizard(freePriceEntry);

        EXPECT_EQ(ui->boxTexts(), run.boxes);
        EXPECT_EQ(gMainWindow, nullptr);
        EXPECT_EQ(gAppRunning, run.stillRunning);
    }
}
