#pragma once

#include "marketplace/FaultPlan.h"
#include "marketplace/MarketplaceData.h"
#include "marketplace/MarketplaceState.h"
#include "marketplace/ServiceContract.h"
#include "marketplace/SoapMessage.h"

#include <string>
#include <string_view>
#include <vector>

/// The seven operations of the catalogue service. Each answer is the text of an XML document
/// whose element is named after the operation and opens with RESULT; a request it cannot
/// serve, malformed ones included, gets a RESULT with the code and the reason, never a crash.
class CatalogService
{
public:
    CatalogService(const MarketplaceData &data, MarketplaceState &state);

    /// The document answering a request that came to the endpoint of `port`.
    std::string answer(std::string_view port, const SoapMessage &message);
    /// The values that fault filters can test for this request: category, product, store,
    /// seller, as its arguments give them.
    static FaultPlan::Context faultContext(const SoapMessage &message);
    /// The name of the reply's document element for a request: its operation, else "Error".
    static std::string replyName(const SoapMessage &message);

private:
    using Arguments = std::vector<std::string>;

    std::string sellerInformation(const Arguments &args) const;
    std::string categoryContent(const Arguments &args) const;
    std::string productDefinition(const Arguments &args) const;
    std::string productInformation(const Arguments &args) const;
    std::string newCategory(const Arguments &args);
    std::string newProduct(const std::string &operation, const Arguments &args);

    const MarketplaceData &m_data;
    MarketplaceState &m_state;
};
