#pragma once

#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class XmlNode;
class ZorvantaProduct;

/// One category of the marketplace's tree: its identity, all its subcategories (read with the
/// first page) and one page at a time of the products that hang directly on it. Also the door
/// through which the seller asks the marketplace for new categories, products and templates.
/// Made with std::make_shared, since its subcategories point back at it.
class ZorvantaCategory : public std::enable_shared_from_this<ZorvantaCategory>
{
public:
    using Categories = Collection<std::shared_ptr<ZorvantaCategory>>;
    using Products = Collection<std::shared_ptr<ZorvantaProduct>>;

    /// Products asked for in each page.
    static constexpr std::int16_t kQuerySize = 50;

    ZorvantaCategory();

    /// The id sent to the service; the root's is empty.
    const std::string &id() const { return m_id; }
    void setId(std::string id) { m_id = std::move(id); }
    const std::string &name() const { return m_name; }
    /// May be empty.
    const std::string &Description() const { return m_description; }
    /// The category above; nullptr for the root.
    std::shared_ptr<ZorvantaCategory> parent() const { return m_parent.lock(); }
    void setParent(const std::shared_ptr<ZorvantaCategory> &parent) { m_parent = parent; }
    /// Keyed by id, in the order of the reply; nullptr until StartQuery.
    const std::shared_ptr<Categories> &children() const { return m_children; }
    /// The products of the last page read, keyed by id; nullptr until StartQuery.
    const std::shared_ptr<Products> &products() const { return m_products; }
    /// True once a page held fewer products than kQuerySize.
    bool allRead() const { return m_allRead; }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// Takes name, id and description from a `CurrentCategory` or `Category` element. A
    /// failure is reported (-10503) and leaves what was read so far.
    void setXml(const XmlNode &node);

    /// Forgets the pages read and reads the first one.
    void StartQuery();
    /// Reads the next page into `products`, which then holds that page alone; after the last
    /// page it asks once more and leaves `products` empty. A failure is reported and leaves
    /// `products` as it stood.
    void GetMore();

    /// The product templates offered under the category, not keyed; read once. After a
    /// failure, reported, the first read gives nullptr and later ones what was read.
    std::shared_ptr<Products> productDefinitions();

    /// The reading half of GetMore: takes one page of the service's GetCategoryContent reply.
    /// Raises what GetMore reports (-10503 for a reply that is malformed or lacks what it needs).
    void readContentPage(const std::string &reply);
    /// The reading half of productDefinitions: adds to `definitions` the templates of a
    /// GetProductDefinition reply. Raises what productDefinitions reports.
    static void readProductDefinitions(const std::string &reply, Products &definitions);

    /// Sends the request document `xml` for a new product, after prefixing it with the XML
    /// declaration: the caller's text keeps the prefix. Says in a box how it went.
    void RequestNewProduct(std::string &xml);
    /// The same for a new product template.
    void RequestNewProductDefinition(std::string &xml);
    /// Asks for a subcategory called `name`. Gives a category that carries the name and an
    /// empty id, since it exists only once the marketplace approves it; nullptr on failure.
    std::shared_ptr<ZorvantaCategory> RequestNewSubcategory(const std::string &name);

private:
    void readPage();
    void sendProductRequest(std::string &xml, bool definition);

    std::int32_t m_classDebugId;
    std::string m_id;
    std::string m_name;
    std::string m_description;
    std::weak_ptr<ZorvantaCategory> m_parent;
    std::shared_ptr<Categories> m_children;
    std::shared_ptr<Products> m_products;
    std::shared_ptr<Products> m_productDefinitions;
    bool m_allRead = false;
    std::int16_t m_pagesRead = 0;
};
