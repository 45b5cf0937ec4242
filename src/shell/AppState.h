#pragma once

#include <string>

/// What the failure path and the wizards need of the main window, which lives in a layer
/// above them and registers itself in gMainWindow when it is created.
class HostWindow
{
public:
    virtual ~HostWindow() = default;
    /// The one door for changing panel, leaving, or showing help.
    virtual void ShowWizard(const std::string &key) = 0;
    /// Closes the window as its own close box would, running its unload.
    virtual void unload() = 0;
};

/// True from the start of the assistant until a failed start or a fatal error. While false
/// nothing more is logged or shown.
extern bool gAppRunning;
/// How price attributes are edited in the property grid; the host's argument, unchanged.
extern bool gFreePriceEntry;
/// The window on show; cleared when a fatal error closes everything.
extern HostWindow *gMainWindow;
