#pragma once

#include "gateways/DovelAPI.h"
#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class ProductLine;
class ZorvantaMinistore;

/// A text search over the seller's ERP, read page by page. `queryType` says what the text is
/// matched against (1 the code, 2 the description, 3 the reference) and `productType` which
/// list is searched and so what each line is, as for DovelCategory.
class ProductBrowser
{
public:
    using Products = Collection<std::shared_ptr<ProductLine>>;

    ProductBrowser();

    const std::string &searchString() const { return m_searchString; }
    void setSearchString(std::string text) { m_searchString = std::move(text); }
    /// The store the lists are narrowed to; nullptr means all.
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    bool Forward() const { return m_forward; }
    void setForward(bool forward) { m_forward = forward; }
    /// Where the ERP's last page ended, as the ERP wrote it.
    std::string lastId() const { return m_lastId.text(); }
    void setLastId(const std::string &lastId) { m_lastId.assign(lastId); }
    std::int16_t querySize() const { return m_querySize; }
    void setQuerySize(std::int16_t size) { m_querySize = size; }
    std::int16_t productType() const { return m_productType; }
    void setProductType(std::int16_t type) { m_productType = type; }
    std::int16_t queryType() const { return m_queryType; }
    void setQueryType(std::int16_t type) { m_queryType = type; }
    /// The lines of the last page, not keyed; nullptr until StartQuery.
    const std::shared_ptr<Products> &products() const { return m_products; }
    /// -1 once the ERP said the search is over, else 0.
    std::int16_t allRead() const { return m_allRead ? -1 : 0; }
    std::int32_t ClassDebugID() const { return m_classDebugId; }

    /// Starts the search again from the first page and reads it.
    void StartQuery();
    /// Reads the next page into `products`, which then holds that page alone; once the search
    /// is over it empties `products` without asking the ERP. A failure is reported: a bad reply
    /// (-10500) lets the program go on, a failed call (-11001) closes it.
    void GetMore();

private:
    void readPage();

    std::int32_t m_classDebugId;
    std::string m_searchString;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    bool m_forward = true;
    ConnectorBuffer m_lastId{DovelAPI::kLastIdSize};
    std::int16_t m_querySize = 50;
    std::int16_t m_productType = 0;
    std::int16_t m_queryType = 1;
    std::shared_ptr<Products> m_products;
    bool m_allRead = false;
};
