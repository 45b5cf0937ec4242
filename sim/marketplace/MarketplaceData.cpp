#include "marketplace/MarketplaceData.h"

#include "platform/core/RaisedError.h"

#include <sstream>

namespace {

pugi::xml_node find(const std::map<std::string, pugi::xml_node> &index, const std::string &id)
{
    const auto it = index.find(id);
    return it == index.end() ? pugi::xml_node() : it->second;
}

// The first of several nodes with one id wins, as a database's first row would; the data may
// hold duplicates on purpose, to show what a reader does with them.
void add(std::map<std::string, pugi::xml_node> &index, const std::string &id, pugi::xml_node node)
{
    index.emplace(id, node);
}

} // namespace

std::unique_ptr<MarketplaceData> MarketplaceData::load(const std::filesystem::path &dir)
{
    const std::filesystem::path file = dir / kFileName;
    auto doc = std::make_unique<pugi::xml_document>();
    const pugi::xml_parse_result parsed =
        doc->load_file(file.c_str(), pugi::parse_default, pugi::encoding_utf8);
    if (parsed.status == pugi::status_file_not_found || parsed.status == pugi::status_io_error) {
        raiseError(RuntimeErrorNumber::FileNotFound,
                   "No se puede leer " + file.string() + ": " + parsed.description());
    }
    if (!parsed) {
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   file.string() + " está mal construido: " + parsed.description() +
                       " (posición " + std::to_string(parsed.offset) + ")");
    }
    return std::unique_ptr<MarketplaceData>(new MarketplaceData(std::move(doc), file.string()));
}

std::unique_ptr<MarketplaceData> MarketplaceData::fromText(const std::string &xml)
{
    auto doc = std::make_unique<pugi::xml_document>();
    const pugi::xml_parse_result parsed =
        doc->load_buffer(xml.data(), xml.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!parsed) {
        raiseError(RuntimeErrorNumber::TypeMismatch,
                   std::string("Datos mal construidos: ") + parsed.description());
    }
    return std::unique_ptr<MarketplaceData>(new MarketplaceData(std::move(doc), "datos"));
}

MarketplaceData::MarketplaceData(std::unique_ptr<pugi::xml_document> doc,
                                 const std::string &origin)
    : m_doc(std::move(doc)), m_root(m_doc->child("Marketplace"))
{
    if (!m_root) {
        raiseError(RuntimeErrorNumber::TypeMismatch, origin + " no tiene el elemento Marketplace");
    }
    for (pugi::xml_node seller : sellers().children("Seller")) {
        add(m_sellers, seller.attribute("id").value(), seller);
        for (pugi::xml_node store : seller.children("Store")) {
            add(m_stores, store.attribute("id").value(), store);
        }
    }
    for (pugi::xml_node property : propertiesDefinition().children("Property")) {
        add(m_properties, property.attribute("id").value(), property);
    }
    for (pugi::xml_node definition : m_root.child("Definitions").children("Definition")) {
        add(m_definitions, definition.attribute("name").value(), definition);
    }
    m_catalog = m_root.child("Catalog");
    if (!m_catalog) {
        m_catalog = m_root.append_child("Catalog");
    }
    indexCategories(m_catalog);
}

void MarketplaceData::indexCategories(pugi::xml_node category)
{
    add(m_categories, categoryId(category), category);
    for (pugi::xml_node product : category.children("Product")) {
        add(m_products, product.attribute("id").value(), product);
    }
    for (pugi::xml_node child : category.children("Category")) {
        indexCategories(child);
    }
}

pugi::xml_node MarketplaceData::seller(const std::string &id) const
{
    return find(m_sellers, id);
}

pugi::xml_node MarketplaceData::sellerByClient(const std::string &license,
                                               const std::string &clientKey2,
                                               const std::string &clientNumber) const
{
    for (pugi::xml_node seller : sellers().children("Seller")) {
        if (license == seller.attribute("license").value() &&
            clientKey2 == seller.attribute("clientKey2").value() &&
            clientNumber == seller.attribute("clientNumber").value()) {
            return seller;
        }
    }
    return {};
}

pugi::xml_node MarketplaceData::store(const std::string &id) const
{
    return find(m_stores, id);
}

pugi::xml_node MarketplaceData::category(const std::string &id) const
{
    return find(m_categories, id);
}

pugi::xml_node MarketplaceData::product(const std::string &id) const
{
    return find(m_products, id);
}

pugi::xml_node MarketplaceData::property(const std::string &id) const
{
    return find(m_properties, id);
}

pugi::xml_node MarketplaceData::definition(const std::string &name) const
{
    return find(m_definitions, name);
}

std::vector<pugi::xml_node> MarketplaceData::definitionsFor(pugi::xml_node category) const
{
    std::vector<pugi::xml_node> found;
    for (pugi::xml_node node = category; node && found.empty(); node = node.parent()) {
        if (!node.attribute("definitions")) {
            continue;
        }
        std::istringstream names(node.attribute("definitions").value());
        std::string name;
        while (names >> name) {
            if (pugi::xml_node definition = find(m_definitions, name)) {
                found.push_back(definition);
            }
        }
        if (node == m_catalog) {
            break;
        }
    }
    return found;
}

std::string MarketplaceData::categoryId(pugi::xml_node category)
{
    return std::string(category.name()) == "Catalog" ? std::string()
                                                     : category.attribute("id").value();
}

std::string MarketplaceData::fieldValue(pugi::xml_node product, const char *fieldId)
{
    return product.find_child_by_attribute("Field", "fieldID", fieldId).text().get();
}
