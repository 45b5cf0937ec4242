#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <vector>

/// The calls of libzrvndll.so, with buffers of the sizes the program gives.
class Erp
{
public:
    /// A caller-owned buffer of `size` NULs, followed by a guard zone that the library must never
    /// touch.
    class Buffer
    {
    public:
        explicit Buffer(std::size_t size = 256);
        char *data() { return m_bytes.data(); }
        std::string text() const { return m_bytes.data(); }
        bool guardIntact() const;

    private:
        std::size_t m_size;
        std::vector<char> m_bytes;
    };

    struct Reply
    {
        std::int32_t code = -1;
        std::string text;
        bool parsed = false;
        /// Nothing was written past the reply buffer, nor past the query's position.
        bool guardIntact = false;
        pugi::xml_document document;
        /// The texts of the nodes an XPath selects, in document order.
        std::vector<std::string> texts(const std::string &xpath) const;
        std::vector<std::string> productIds() const { return texts("//Producto/CodigoDovel"); }
    };

    /// A paged query as the program runs it, of a category's contents or a search: the resume
    /// state lives here between calls.
    struct Query
    {
        bool isSearch = false;
        std::int32_t productType = 0;
        std::string categoryId;
        std::int32_t queryType = 1;
        std::string searchText;
        std::int32_t querySize = 50;
        std::string ministoreId;
        Buffer position;
    };
    static Query categoryQuery(std::int32_t productType, const std::string &categoryId);
    static Query searchQuery(std::int32_t productType, std::int32_t queryType,
                             const std::string &text);

    static Reply virtualDeposits();
    /// The next page of the query, forwards or backwards.
    static Reply page(Query &query, bool forward = true);
    static Reply definition(std::int32_t productType, const std::string &key,
                            const std::string &ministoreId = "");
    static Reply taxes();
};
