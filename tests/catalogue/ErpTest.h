#pragma once

#include "CatalogueTest.h"
#include "ScriptedErp.h"

#include <memory>
#include <string>

class ZorvantaMinistore;

/// A catalogue test against the scripted ERP.
class ErpTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        erp = std::make_shared<ScriptedErp>();
        setErpLibrary(erp);
    }
    void TearDown() override
    {
        setErpLibrary(nullptr);
        CatalogueTest::TearDown();
    }

    /// A ministore of the seller with that id.
    static std::shared_ptr<ZorvantaMinistore> ministore(const std::string &id);

    std::shared_ptr<ScriptedErp> erp;
};
