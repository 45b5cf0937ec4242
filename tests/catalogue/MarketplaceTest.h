#pragma once

#include "CannedMarketplace.h"
#include "CatalogueTest.h"
#include "FakeConnectors.h"
#include "stores/Seller.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A catalogue test against a canned marketplace, with the demo seller's ERP and back office in
/// process. The service's clients are bound to the canned marketplace as the start binds them.
class MarketplaceTest : public CatalogueTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// The seller's stores, in this order, as the service and the back office will describe them
    /// at the first read of the seller's ministores.
    void givenMinistores(const std::vector<std::string> &ids);

    /// A GetCategoryContent reply: the current category, its children (id, description) and
    /// products `first`..`last` ("ZP-<n>", named "Producto <n>").
    static std::string
    categoryPage(const std::string &id,
                 const std::vector<std::pair<std::string, std::string>> &children, int first,
                 int last);
    /// The box shown for an error that lets the program go on.
    static std::string applicationErrorBox(int number);

    CannedMarketplace marketplace;
    std::shared_ptr<FakeErp> erp;
    std::shared_ptr<FakeBackOffice> backOffice;
};
