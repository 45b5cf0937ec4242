#include "marketplace/MarketplaceState.h"

#include <sstream>

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

std::string MarketplaceState::toXml() const
{
    pugi::xml_document doc;
    pugi::xml_node root = doc.append_child("MarketplaceState");
    pugi::xml_node stores = root.append_child("Stores");
    for (const auto &[storeId, publications] : m_publications) {
        pugi::xml_node store = stores.append_child("Store");
        store.append_attribute("StoreID") = storeId.c_str();
        store.append_attribute("NumberOfProducts") =
            static_cast<unsigned long long>(publications.size());
        for (const auto &[number, publication] : publications) {
            pugi::xml_node node = store.append_child("Publication");
            node.append_attribute("PublicationID") = number.c_str();
            node.append_attribute("ZorvantaID") = publication.zorvantaId.c_str();
            for (const auto &[id, value] : publication.fields) {
                pugi::xml_node field = node.append_child("Field");
                field.append_attribute("fieldID") = id.c_str();
                field.text() = value.c_str();
            }
        }
    }
    pugi::xml_node requests = root.append_child("Requests");
    for (const ReceivedRequest &received : m_requests) {
        pugi::xml_node node = requests.append_child("Request");
        node.append_attribute("operation") = received.operation.c_str();
        node.append_attribute("StoreID") = received.storeId.c_str();
        node.append_attribute("CategoryID") = received.categoryId.c_str();
        node.text() = received.text.c_str();
    }
    pugi::xml_node taxes = root.append_child("Taxes");
    for (const auto &[storeId, storeTaxes] : m_taxes) {
        pugi::xml_node store = taxes.append_child("Store");
        store.append_attribute("StoreID") = storeId.c_str();
        for (const StoreTax &tax : storeTaxes) {
            pugi::xml_node node = store.append_child("Tax");
            node.append_attribute("TaxID") = tax.id.c_str();
            node.append_attribute("AmountType") = tax.amountType.c_str();
            node.append_attribute("Amount") = tax.amount.c_str();
        }
    }
    std::ostringstream out;
    doc.save(out, " ", pugi::format_default, pugi::encoding_utf8);
    return out.str();
}

bool MarketplaceState::restore(const std::string &xml)
{
    pugi::xml_document doc;
    if (!doc.load_buffer(xml.data(), xml.size(), pugi::parse_default, pugi::encoding_utf8) ||
        !doc.child("MarketplaceState")) {
        return false;
    }
    pugi::xml_node root = doc.child("MarketplaceState");
    m_publications.clear();
    for (pugi::xml_node store : root.child("Stores").children("Store")) {
        auto &published = m_publications[store.attribute("StoreID").value()];
        for (pugi::xml_node node : store.children("Publication")) {
            Publication publication{node.attribute("ZorvantaID").value(), {}};
            for (pugi::xml_node field : node.children("Field")) {
                publication.fields[field.attribute("fieldID").value()] = field.text().get();
            }
            published.emplace(node.attribute("PublicationID").value(), std::move(publication));
        }
    }
    m_requests.clear();
    for (pugi::xml_node node : root.child("Requests").children("Request")) {
        m_requests.push_back({node.attribute("operation").value(),
                              node.attribute("StoreID").value(),
                              node.attribute("CategoryID").value(), node.text().get()});
    }
    m_taxes.clear();
    for (pugi::xml_node store : root.child("Taxes").children("Store")) {
        auto &storeTaxes = m_taxes[store.attribute("StoreID").value()];
        for (pugi::xml_node tax : store.children("Tax")) {
            storeTaxes.push_back({tax.attribute("TaxID").value(),
                                  tax.attribute("AmountType").value(),
                                  tax.attribute("Amount").value()});
        }
    }
    return true;
}
