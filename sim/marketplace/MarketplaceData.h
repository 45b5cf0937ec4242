#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// The marketplace's catalogue and customers as its data file describes them: sellers with
/// their stores and users, the category tree with products, the property definitions and
/// product templates, the back office's operation limits and the faults to inject.
/// Read-only once loaded.
class MarketplaceData
{
public:
    /// Name of the data file inside a data directory.
    static constexpr const char *kFileName = "marketplace.xml";

    /// Loads <dir>/marketplace.xml. Raises 53 when the file cannot be read and 13 when it is
    /// not a marketplace document, with the file's name and the parser's text.
    static std::unique_ptr<MarketplaceData> load(const std::filesystem::path &dir);
    /// The same from a text, for data built in memory.
    static std::unique_ptr<MarketplaceData> fromText(const std::string &xml);

    pugi::xml_node seller(const std::string &id) const;
    /// The seller whose client keys and number are these, or an empty node.
    pugi::xml_node sellerByClient(const std::string &license, const std::string &clientKey2,
                                  const std::string &clientNumber) const;
    pugi::xml_node store(const std::string &id) const;
    /// The category of that id; the empty id is the root of the tree.
    pugi::xml_node category(const std::string &id) const;
    pugi::xml_node product(const std::string &id) const;
    pugi::xml_node property(const std::string &id) const;
    pugi::xml_node definition(const std::string &name) const;
    /// The templates offered under a category: those it names, else those of the nearest
    /// category above it that names any.
    std::vector<pugi::xml_node> definitionsFor(pugi::xml_node category) const;

    pugi::xml_node sellers() const { return m_root.child("Sellers"); }
    pugi::xml_node propertiesDefinition() const { return m_root.child("PropertiesDefinition"); }
    pugi::xml_node operationLimits() const { return m_root.child("OperationLimits"); }
    pugi::xml_node faults() const { return m_root.child("Faults"); }

    /// Whether the category node is the root of the tree.
    bool isRoot(pugi::xml_node category) const { return category == m_catalog; }
    /// The id under which the category is known; empty for the root.
    static std::string categoryId(pugi::xml_node category);
    /// The text of a product's Field of that id, empty when it has none.
    static std::string fieldValue(pugi::xml_node product, const char *fieldId);

private:
    explicit MarketplaceData(std::unique_ptr<pugi::xml_document> doc, const std::string &origin);
    void indexCategories(pugi::xml_node category);

    std::unique_ptr<pugi::xml_document> m_doc;
    pugi::xml_node m_root;
    pugi::xml_node m_catalog;
    std::map<std::string, pugi::xml_node> m_sellers;
    std::map<std::string, pugi::xml_node> m_stores;
    std::map<std::string, pugi::xml_node> m_categories;
    std::map<std::string, pugi::xml_node> m_products;
    std::map<std::string, pugi::xml_node> m_properties;
    std::map<std::string, pugi::xml_node> m_definitions;
};
