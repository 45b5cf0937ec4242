#pragma once

#include "gateways/DovelAPI.h"
#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class ProductLine;
class XmlNode;
class ZorvantaMinistore;

/// One category of the seller's ERP, walked page by page: its subcategories (read with the
/// first page) and the product lines of the last page read. `productType` tells which list the
/// ERP gives (0 all products, 1 associated, 2 published, 3 pending) and so what each line is.
class DovelCategory
{
public:
    using Categories = Collection<std::shared_ptr<DovelCategory>>;
    using Products = Collection<std::shared_ptr<ProductLine>>;

    DovelCategory();

    /// The id in the ERP; empty for the root.
    const std::string &id() const { return m_id; }
    void setId(std::string id) { m_id = std::move(id); }
    const std::string &name() const { return m_name; }
    /// Not keyed; nullptr until StartQuery.
    const std::shared_ptr<Categories> &children() const { return m_children; }
    /// The lines of the last page, not keyed; nullptr until StartQuery.
    const std::shared_ptr<Products> &products() const { return m_products; }
    /// "True" or "False": callers compare it as text.
    std::string allRead() const { return m_allRead ? "True" : "False"; }
    /// The store the lists are narrowed to; nullptr means all.
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    bool Forward() const { return m_forward; }
    void setForward(bool forward) { m_forward = forward; }
    std::int16_t querySize() const { return m_querySize; }
    void setQuerySize(std::int16_t size) { m_querySize = size; }
    std::int16_t productType() const { return m_productType; }
    void setProductType(std::int16_t type) { m_productType = type; }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// Takes `nombre` and `id` from a `CategoriaActual` or `Categoria` element. A failure is
    /// reported (-10500) and leaves what was read so far.
    void setXml(const XmlNode &node);

    /// Starts the walk again from the first page and reads it.
    void StartQuery();
    /// Reads the next page into `products`, which then holds that page alone. Only the ERP's
    /// code ends the walk; once it has, a further call asks the ERP again and reads no product.
    /// A failure is reported: a bad reply (-10500) lets the program go on, a failed call
    /// (-11001) closes it.
    void GetMore();

private:
    void readPage();

    std::int32_t m_classDebugId;
    std::string m_id;
    std::string m_name;
    std::shared_ptr<Categories> m_children;
    std::shared_ptr<Products> m_products;
    bool m_allRead = false;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    bool m_forward = true;
    std::int16_t m_querySize = 50;
    std::int16_t m_productType = 0;
    // Where the ERP's last page ended, as the ERP wrote it: opaque to the program.
    ConnectorBuffer m_lastId{DovelAPI::kCategoryPositionSize};
};
