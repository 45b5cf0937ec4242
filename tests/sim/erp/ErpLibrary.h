#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <pugixml.hpp>

/// The real libzrvndll.so, loaded with dlopen as the program loads it, and called with buffers
/// of the sizes the program gives. Each call returns the code and keeps what the library wrote.
class ErpLibrary
{
public:
    ErpLibrary();
    ~ErpLibrary();

    /// A caller-owned buffer of `size` characters filled with NUL, followed by a guard zone that
    /// the library must never touch.
    class Buffer
    {
    public:
        explicit Buffer(std::size_t size, const std::string &initial = {});
        char *data() { return m_bytes.data(); }
        std::string text() const { return std::string(m_bytes.data()); }
        std::size_t size() const { return m_size; }
        bool guardIntact() const;

    private:
        std::size_t m_size;
        std::vector<char> m_bytes;
    };

    struct Reply
    {
        std::int32_t code = -1;
        std::string text;
        std::int32_t count = -1;
        pugi::xml_document document;
        bool parsed = false;
        bool guardIntact = false;
        /// The CodigoDovel of every Producto, in order.
        std::vector<std::string> productIds() const;
    };

    /// A paged query as the program runs it: the caller's resume state lives here between calls.
    struct Query
    {
        std::int32_t productType = 0;
        std::string categoryId;
        std::int32_t queryType = 1;
        std::string searchText;
        std::int32_t querySize = 50;
        std::string ministoreId;
        Buffer position;
        explicit Query(std::size_t positionSize) : position(positionSize) {}
    };

    std::int32_t clientIdentity(std::int32_t &number, Buffer &license, Buffer &key2, Buffer &id);
    std::int32_t databaseCoordinates(Buffer &server, Buffer &database, Buffer &user,
                                     Buffer &password);
    Reply virtualDeposits(Buffer &position);
    Reply categoryContents(Query &query, bool forward = true);
    Reply search(Query &query, bool forward = true);
    Reply definition(std::int32_t productType, const std::string &key,
                     const std::string &ministoreId = "");
    Reply taxes();

    static Query categoryQuery(std::int32_t productType, const std::string &categoryId);
    static Query searchQuery(std::int32_t productType, std::int32_t queryType,
                             const std::string &text);

private:
    template <typename Function>
    Function symbol(const char *name);
    static void finish(Reply &reply, Buffer &buffer);

    void *m_handle = nullptr;
};
