#pragma once

#include "CatalogueTest.h"
#include "PropertyValues.h"
#include "SellerDatabaseSandbox.h"
#include "platform/xml/XmlDocument.h"
#include "shell/Constants.h"
#include "stores/Seller.h"

#include <memory>
#include <string>

/// The marketplace's shirt ZP-00191 as a product template (which never calls the service), on a
/// machine that writes 12,5, with an ERP of the test's own (`Erp`) and an embedded seller's
/// database of its own. A test sets `shirt` from its definition with product().
template <class Erp> class ShirtTest : public CatalogueTest
{
protected:
    using Pairs = PropertyPairs;

    void SetUp() override
    {
        CatalogueTest::SetUp();
        m_separator = gDecimalSeparator;
        gDecimalSeparator = ",";
        erp = std::make_shared<Erp>();
        setErpLibrary(erp);
        database = std::make_unique<SellerDatabaseSandbox>();
        gSeller.reset();
    }
    void TearDown() override
    {
        gSeller.reset();
        database.reset();
        setErpLibrary(nullptr);
        gDecimalSeparator = m_separator;
        CatalogueTest::TearDown();
    }

    static std::shared_ptr<ZorvantaProduct> product(const char *definition)
    {
        auto made = std::make_shared<ZorvantaProduct>();
        made->setIsDefinition(true);
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(definition));
        made->setXml(document.documentElement());
        made->setId("ZP-00191");
        return made;
    }
    /// Values of the shirt's properties as the pages give them.
    std::shared_ptr<ZorvantaProduct::Values> values(const Pairs &pairs)
    {
        return propertyValues(*shirt->properties(), pairs);
    }

    std::shared_ptr<Erp> erp;
    std::unique_ptr<SellerDatabaseSandbox> database;
    std::shared_ptr<ZorvantaProduct> shirt;

private:
    std::string m_separator;
};
