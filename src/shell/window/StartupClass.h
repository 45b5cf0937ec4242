#pragma once

/// The one entry the host program creates: StartWizard shows the assistant and returns when
/// the person has left it.
class StartupClass
{
public:
    /// `freePriceEntry` decides how prices are typed in the property grid.
    void StartWizard(bool &freePriceEntry);
};
