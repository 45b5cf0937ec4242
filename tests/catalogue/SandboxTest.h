#pragma once

#include "CatalogueTest.h"

/// A catalogue test against the sandbox as a seller runs it: feria-sim (the fixture's), the
/// real back-office and ERP libraries over the demo data, and the service's clients bound as
/// the start binds them.
class SandboxTest : public CatalogueTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// What feria-sim says it received and holds (GET /sim/state).
    std::string marketplaceState() const;

    std::string marketplaceUrl;
};
