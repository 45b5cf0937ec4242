#include "shell/AppState.h"

bool gAppRunning = false;
bool gFreePriceEntry = false;
HostWindow *gMainWindow = nullptr;
