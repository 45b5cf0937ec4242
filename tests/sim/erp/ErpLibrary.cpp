#include "ErpLibrary.h"

#include "sim/erp/ZrvnDll.h"

#include <algorithm>
#include <dlfcn.h>
#include <stdexcept>

namespace {

constexpr std::size_t kGuard = 64;
constexpr char kGuardByte = '#';
constexpr std::size_t kReplySize = 65535;

} // namespace

ErpLibrary::Buffer::Buffer(std::size_t size, const std::string &initial)
    : m_size(size), m_bytes(size + kGuard, '\0')
{
    std::copy(initial.begin(), initial.end(), m_bytes.begin());
    std::fill(m_bytes.begin() + static_cast<std::ptrdiff_t>(size), m_bytes.end(), kGuardByte);
}

bool ErpLibrary::Buffer::guardIntact() const
{
    return std::all_of(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_size), m_bytes.end(),
                       [](char c) { return c == kGuardByte; });
}

std::vector<std::string> ErpLibrary::Reply::productIds() const
{
    std::vector<std::string> ids;
    for (const pugi::xpath_node &node : document.select_nodes("//Producto/CodigoDovel")) {
        ids.emplace_back(node.node().text().get());
    }
    return ids;
}

ErpLibrary::ErpLibrary() : m_handle(dlopen(ZRVNDLL_PATH, RTLD_NOW | RTLD_LOCAL))
{
    if (m_handle == nullptr) {
        throw std::runtime_error(dlerror());
    }
}

ErpLibrary::~ErpLibrary()
{
    dlclose(m_handle);
}

template <typename Function>
Function ErpLibrary::symbol(const char *name)
{
    void *found = dlsym(m_handle, name);
    if (found == nullptr) {
        throw std::runtime_error(dlerror());
    }
    return reinterpret_cast<Function>(found);
}

std::int32_t ErpLibrary::clientIdentity(std::int32_t &number, Buffer &license, Buffer &key2,
                                        Buffer &id)
{
    return symbol<decltype(&ObtenerIDCliente)>("ObtenerIDCliente")(&number, license.data(),
                                                                    key2.data(), id.data());
}

std::int32_t ErpLibrary::databaseCoordinates(Buffer &server, Buffer &database, Buffer &user,
                                             Buffer &password)
{
    return symbol<decltype(&ObtenerDataBase)>("ObtenerDataBase")(
        server.data(), database.data(), user.data(), password.data());
}

ErpLibrary::Reply ErpLibrary::virtualDeposits(Buffer &position)
{
    Reply reply;
    Buffer buffer(kReplySize);
    reply.code = symbol<decltype(&ListarDepositosVirtuales)>("ListarDepositosVirtuales")(
        50, position.data(), 0, &reply.count, buffer.data());
    finish(reply, buffer);
    return reply;
}

ErpLibrary::Reply ErpLibrary::categoryContents(Query &query, bool forward)
{
    Reply reply;
    Buffer buffer(kReplySize);
    Buffer categoryId(query.categoryId.size() + 1, query.categoryId);
    reply.code = symbol<decltype(&ObtenerContenidoCategoria)>("ObtenerContenidoCategoria")(
        query.productType, categoryId.data(), query.querySize, query.position.data(),
        forward ? 0 : 1, query.ministoreId.c_str(), &reply.count, buffer.data());
    finish(reply, buffer);
    reply.guardIntact = reply.guardIntact && query.position.guardIntact() &&
                        categoryId.guardIntact() && categoryId.text() == query.categoryId;
    return reply;
}

ErpLibrary::Reply ErpLibrary::search(Query &query, bool forward)
{
    Reply reply;
    Buffer buffer(kReplySize);
    Buffer text(query.searchText.size() + 1, query.searchText);
    reply.code = symbol<decltype(&BusquedaProductosIndividual)>("BusquedaProductosIndividual")(
        query.productType, query.queryType, text.data(), query.querySize, query.position.data(),
        forward ? 0 : 1, query.ministoreId.c_str(), &reply.count, buffer.data());
    finish(reply, buffer);
    reply.guardIntact = reply.guardIntact && query.position.guardIntact() && text.guardIntact();
    return reply;
}

ErpLibrary::Reply ErpLibrary::definition(std::int32_t productType, const std::string &key,
                                         const std::string &ministoreId)
{
    Reply reply;
    Buffer buffer(kReplySize);
    reply.code = symbol<decltype(&ObtenerDefinicionProducto)>("ObtenerDefinicionProducto")(
        productType, key.c_str(), ministoreId.c_str(), buffer.data());
    finish(reply, buffer);
    return reply;
}

ErpLibrary::Reply ErpLibrary::taxes()
{
    Reply reply;
    Buffer buffer(kReplySize);
    reply.code = symbol<decltype(&ObtenerImpuestos)>("ObtenerImpuestos")(buffer.data());
    finish(reply, buffer);
    return reply;
}

ErpLibrary::Query ErpLibrary::categoryQuery(std::int32_t productType,
                                            const std::string &categoryId)
{
    Query query(100);
    query.productType = productType;
    query.categoryId = categoryId;
    return query;
}

ErpLibrary::Query ErpLibrary::searchQuery(std::int32_t productType, std::int32_t queryType,
                                          const std::string &text)
{
    Query query(1000);
    query.productType = productType;
    query.queryType = queryType;
    query.searchText = text;
    return query;
}

void ErpLibrary::finish(Reply &reply, Buffer &buffer)
{
    reply.text = buffer.text();
    reply.guardIntact = buffer.guardIntact();
    reply.parsed = static_cast<bool>(reply.document.load_string(reply.text.c_str()));
}
