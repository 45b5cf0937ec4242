#pragma once

#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class SellerTax;
class XmlNode;

/// The seller's taxes in the order the ERP gives them.
using SellerTaxes = Collection<std::shared_ptr<SellerTax>>;

/// One of the seller's storefronts on the marketplace, filled from the two replies that describe
/// it: the catalogue service's (id, name, description, what the marketplace counts as published)
/// and the back office's (plan, its limit of products, status).
class ZorvantaMinistore
{
public:
    ZorvantaMinistore();

    /// The credentials typed in the validation dialog; kept on the object, never stored.
    const std::string &password() const { return m_password; }
    void setPassword(const std::string &password) { m_password = password; }
    const std::string &username() const { return m_username; }
    void setUsername(const std::string &username) { m_username = username; }

    /// The marketplace plan the store runs under.
    std::int32_t productId() const { return m_productId; }
    /// The plan's limit of published products.
    std::int32_t maxPublishedProducts() const { return m_maxPublishedProducts; }
    /// What the marketplace itself counts as published.
    std::int32_t totalPublishedProducts() const { return m_totalPublishedProducts; }
    /// What the seller's database counts: its publications of the store less those already
    /// waiting for withdrawal. 0, after reporting, when the database fails or a count does not
    /// fit 16 bits.
    std::int16_t totalPublishedBySeller() const;
    /// "A" for an active store, as the back office wrote it.
    const std::string &status() const { return m_status; }

    /// Fills the store from its node of the catalogue service's reply and its node of the back
    /// office's. Never reports: a gap ends the filling silently, leaving what was read before it
    /// and the rest at its initial value.
    void setXml(const XmlNode &storeNode, const XmlNode &backOfficeNode);

    std::int32_t ClassDebugID() const { return m_classDebugId; }
    const std::string &Description() const { return m_description; }
    /// The store's key everywhere: IdTienda in the tables, StoreID in XML.
    const std::string &id() const { return m_id; }
    const std::string &name() const { return m_name; }

    /// Checks username and password against the back office with the seller's session. False
    /// when the back office refuses them, and also, after reporting, on any failure.
    bool validateUser();

    /// The seller's taxes, read from the ERP at the first call and kept. Null, after reporting,
    /// when the ERP fails or its reply does not parse.
    std::shared_ptr<SellerTaxes> getTaxesFromSeller();
    /// Sends the seller's taxes to the store. True when the marketplace accepted every one;
    /// false, after reporting, otherwise.
    bool setTaxesInZorvanta();

private:
    std::int32_t m_classDebugId;
    std::string m_password;
    std::string m_username;
    std::int32_t m_productId = 0;
    std::int32_t m_maxPublishedProducts = 0;
    std::int32_t m_totalPublishedProducts = 0;
    std::string m_status;
    std::string m_description;
    std::string m_id;
    std::string m_name;
    std::shared_ptr<SellerTaxes> m_taxes;
};
