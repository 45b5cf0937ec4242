#pragma once

#include "marketplace/FaultPlan.h"
#include "marketplace/MarketplaceData.h"
#include "marketplace/MarketplaceState.h"

#include <cstdint>
#include <string>

/// A connector code and, when it is 0, the text that goes back to the caller.
struct BackOfficeReply
{
    std::int32_t code = 0;
    std::string text;
};

/// The marketplace's back office: sessions of the seller's program and the operations it
/// runs in them. 8 checks a store user, 9 runs a batch of catalogue operations, 13 describes
/// the seller's stores, 14 gives the operation limits, 16 takes a store's taxes.
/// Sessions: wrong client keys or number give -2005 at open; an unknown or lost session gives
/// -2005 on every operation, so that the caller closes, reopens and retries; closing a lost
/// session succeeds, closing an unknown one gives -2004.
class BackOfficeService
{
public:
    BackOfficeService(const MarketplaceData &data, MarketplaceState &state,
                      const FaultPlan &faults);

    /// Code 0 and the session id in decimal, or a connector code.
    BackOfficeReply openSession(const std::string &clientKey1, const std::string &clientKey2,
                                const std::string &clientNumber);
    std::int32_t closeSession(std::int32_t sessionId);
    /// A connector code for a session or call that cannot be served; otherwise code 0 and a
    /// reply document, whose RESULT tells the marketplace's own verdict.
    BackOfficeReply execute(std::int32_t operationId, std::int32_t sessionId,
                            const std::string &request);

    /// The document element of the replies of an operation.
    static std::string replyName(std::int32_t operationId);

private:
    std::string validateUser(pugi::xml_node request, pugi::xml_node seller) const;
    std::string catalogOperation(pugi::xml_node request, pugi::xml_node seller);
    std::string storeInfo(pugi::xml_node request, pugi::xml_node seller) const;
    std::string operationConfiguration() const;
    std::string setTaxes(pugi::xml_node request, pugi::xml_node seller);

    const MarketplaceData &m_data;
    MarketplaceState &m_state;
    const FaultPlan &m_faults;
};
