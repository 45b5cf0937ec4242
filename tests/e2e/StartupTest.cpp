#include "AssistantSandbox.h"
#include "shell/AppState.h"
#include "shell/window/StartupClass.h"

#include <QTimer>
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using StartupTest = AssistantSandbox;

const char *const kFatalConnection =
    "Ocurrió un error grave de conexión. Contacte al administrador o reintente más tarde";

} // namespace

TEST_F(StartupTest, aMarketplaceThatDoesNotAnswerStopsTheStartWithNoWindow)
{
    // Nothing listens on the discard port of the loopback address.
    setenv("ASISTENTE_MARKETPLACE_URL", "http://127.0.0.1:9", 1);
    bool freePriceEntry = false;
    StartupClass().StartWizard(freePriceEntry);

    EXPECT_THAT(ui->boxTexts(),
                ElementsAre("Error: 440: Error de la aplicación. Contacte al administrador del "
                            "sistema",
                            "La aplicación será cerrada", kFatalConnection));
    EXPECT_EQ(gMainWindow, nullptr);
    EXPECT_FALSE(gAppRunning);
}

// The fixture's marketplace knows the seller but no ministore of it.
TEST_F(StartupTest, aSellerWithNoMinistoresGetsTheWindowAndTheWizardSaysSo)
{
    bool windowOpened = false;
    // The window runs its own loop: the person acts once it is on show, then closes it.
    QTimer::singleShot(0, [&] {
        windowOpened = gMainWindow != nullptr;
        if (!windowOpened)
            return;
        gMainWindow->ShowWizard("Ministores");
        gMainWindow->ShowWizard("Exit");
    });
    bool freePriceEntry = false;
    StartupClass().StartWizard(freePriceEntry);

    EXPECT_TRUE(windowOpened);
    EXPECT_THAT(ui->boxTexts(), ElementsAre("No hay minitiendas. Consulte al Administrador."));
    EXPECT_TRUE(gAppRunning);
}
