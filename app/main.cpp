#include "platform/ui/QtUi.h"
#include "shell/window/StartupClass.h"

#include <QApplication>

#include <cstring>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QString::fromUtf8("Asistente de Publicación"));
    setUi(std::make_unique<QtUi>());

    bool freePriceEntry = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--free-price-entry") == 0)
            freePriceEntry = true;
    }
    StartupClass startup;
    startup.StartWizard(freePriceEntry);
    return 0;
}
