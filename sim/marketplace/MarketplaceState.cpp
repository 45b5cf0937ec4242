#include "marketplace/MarketplaceState.h"

MarketplaceState::MarketplaceState(const MarketplaceData &data)
{
    for (pugi::xml_node seller : data.sellers().children("Seller")) {
        for (pugi::xml_node store : seller.children("Store")) {
            auto &published = m_publications[store.attribute("id").value()];
            for (pugi::xml_node node : store.children("Publication")) {
                Publication publication;
                publication.zorvantaId = node.attribute("product").value();
                for (pugi::xml_node field : node.children("Field")) {
                    publication.fields[field.attribute("fieldID").value()] = field.text().get();
                }
                published.emplace(node.attribute("id").value(), std::move(publication));
            }
        }
    }
}

std::map<std::string, Publication> &MarketplaceState::publications(const std::string &storeId)
{
    return m_publications[storeId];
}

std::int32_t MarketplaceState::openSession(const std::string &sellerId)
{
    const std::int32_t id = m_nextSession++;
    m_sessions[id] = sellerId;
    return id;
}

std::string MarketplaceState::sellerOfSession(std::int32_t sessionId) const
{
    const auto it = m_sessions.find(sessionId);
    return it == m_sessions.end() ? std::string() : it->second;
}

void MarketplaceState::loseSession(std::int32_t sessionId)
{
    if (m_sessions.erase(sessionId) > 0) {
        m_lostSessions.insert(sessionId);
    }
}

bool MarketplaceState::closeSession(std::int32_t sessionId)
{
    // A lost session may still be closed: the caller's recovery closes before it reopens.
    return m_sessions.erase(sessionId) > 0 || m_lostSessions.erase(sessionId) > 0;
}

void MarketplaceState::setTaxes(const std::string &storeId, std::vector<StoreTax> taxes)
{
    m_taxes[storeId] = std::move(taxes);
}
