#pragma once

#include "marketplace/MarketplaceData.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

/// One product offered in one store, under the seller's own publication number.
struct Publication
{
    std::string zorvantaId;
    /// The attribute fields sent with it, by field id (characteristic and not).
    std::map<std::string, std::string> fields;
};

/// A request for a new category, product or product definition, kept as received.
struct ReceivedRequest
{
    std::string operation;
    std::string storeId;
    std::string categoryId;
    std::string text;
};

/// A tax as a store last received it.
struct StoreTax
{
    std::string id;
    std::string amountType;
    std::string amount;
};

/// What changes while the marketplace runs: what each store publishes, the back-office
/// sessions, the requests received and the taxes each store knows. Not thread-safe.
class MarketplaceState
{
public:
    /// Starts from the publications the data file lists under each store.
    explicit MarketplaceState(const MarketplaceData &data);

    /// The store's publications by publication number.
    std::map<std::string, Publication> &publications(const std::string &storeId);
    const std::map<std::string, std::map<std::string, Publication>> &allPublications() const
    {
        return m_publications;
    }

    /// A new session for the seller; ids are never reused within a run.
    std::int32_t openSession(const std::string &sellerId);
    /// The seller of a live session, empty when the session is unknown or lost.
    std::string sellerOfSession(std::int32_t sessionId) const;
    /// Forgets a live session as a crashed back office would; closing it stays possible.
    void loseSession(std::int32_t sessionId);
    /// False when the session was never opened or is already closed.
    bool closeSession(std::int32_t sessionId);

    void recordRequest(ReceivedRequest request) { m_requests.push_back(std::move(request)); }
    const std::vector<ReceivedRequest> &requests() const { return m_requests; }

    void setTaxes(const std::string &storeId, std::vector<StoreTax> taxes);
    const std::map<std::string, std::vector<StoreTax>> &taxes() const { return m_taxes; }

    /// Publications, requests and taxes as one XML document; sessions are not part of it.
    std::string toXml() const;
    /// Takes publications, requests and taxes back from a toXml() document, replacing what
    /// the data file gave. False, with nothing changed, when the text is not such a document.
    bool restore(const std::string &xml);

private:
    std::map<std::string, std::map<std::string, Publication>> m_publications;
    std::map<std::int32_t, std::string> m_sessions;
    std::set<std::int32_t> m_lostSessions;
    std::int32_t m_nextSession = 1001;
    std::vector<ReceivedRequest> m_requests;
    std::map<std::string, std::vector<StoreTax>> m_taxes;
};
