#include "ErpLibrary.h"

#include "platform/connectors/ConnectorAbi.h"

#include <algorithm>
#include <dlfcn.h>
#include <stdexcept>

namespace {

constexpr std::size_t kGuard = 64;
constexpr char kGuardByte = '#';

} // namespace

ErpLibrary::Buffer::Buffer(std::size_t size) : m_size(size), m_bytes(size + kGuard, kGuardByte)
{
    std::fill_n(m_bytes.begin(), size, '\0');
}

bool ErpLibrary::Buffer::guardIntact() const
{
    return std::all_of(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_size), m_bytes.end(),
                       [](char c) { return c == kGuardByte; });
}

std::vector<std::string> ErpLibrary::Reply::texts(const std::string &xpath) const
{
    std::vector<std::string> result;
    pugi::xpath_node_set nodes = document.select_nodes(xpath.c_str());
    nodes.sort();
    for (const pugi::xpath_node &node : nodes) {
        result.emplace_back(node.attribute() ? node.attribute().value()
                                             : node.node().text().get());
    }
    return result;
}

ErpLibrary::Query ErpLibrary::categoryQuery(std::int32_t productType,
                                            const std::string &categoryId)
{
    return Query{productType, categoryId, 1, "", 50, "", Buffer(100)};
}

ErpLibrary::Query ErpLibrary::searchQuery(std::int32_t productType, std::int32_t queryType,
                                          const std::string &text)
{
    return Query{productType, "", queryType, text, 50, "", Buffer(1000)};
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

template <typename Function> Function ErpLibrary::symbol(const char *name) const
{
    void *found = dlsym(m_handle, name);
    if (found == nullptr) {
        throw std::runtime_error(dlerror());
    }
    return reinterpret_cast<Function>(found);
}

template <typename Call> ErpLibrary::Reply ErpLibrary::replyOf(Call call, Buffer *position)
{
    Reply reply;
    Buffer buffer(65535);
    reply.code = call(buffer.data(), &reply.count);
    reply.text = buffer.text();
    reply.guardIntact = buffer.guardIntact() && (position == nullptr || position->guardIntact());
    reply.parsed = static_cast<bool>(reply.document.load_string(reply.text.c_str()));
    return reply;
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
    return symbol<decltype(&ObtenerDataBase)>("ObtenerDataBase")(server.data(), database.data(),
                                                                 user.data(), password.data());
}

ErpLibrary::Reply ErpLibrary::virtualDeposits()
{
    Buffer position(1000);
    const auto function = symbol<decltype(&ListarDepositosVirtuales)>("ListarDepositosVirtuales");
    return replyOf(
        [&](char *reply, std::int32_t *count) {
            return function(50, position.data(), 0, count, reply);
        },
        &position);
}

ErpLibrary::Reply ErpLibrary::categoryContents(Query &query, bool forward)
{
    const auto function =
        symbol<decltype(&ObtenerContenidoCategoria)>("ObtenerContenidoCategoria");
    return replyOf(
        [&](char *reply, std::int32_t *count) {
            return function(query.productType, query.categoryId.data(), query.querySize,
                            query.position.data(), forward ? 0 : 1, query.ministoreId.c_str(),
                            count, reply);
        },
        &query.position);
}

ErpLibrary::Reply ErpLibrary::search(Query &query, bool forward)
{
    const auto function =
        symbol<decltype(&BusquedaProductosIndividual)>("BusquedaProductosIndividual");
    return replyOf(
        [&](char *reply, std::int32_t *count) {
            return function(query.productType, query.queryType, query.searchText.data(),
                            query.querySize, query.position.data(), forward ? 0 : 1,
                            query.ministoreId.c_str(), count, reply);
        },
        &query.position);
}

ErpLibrary::Reply ErpLibrary::definition(std::int32_t productType, const std::string &key,
                                         const std::string &ministoreId)
{
    const auto function =
        symbol<decltype(&ObtenerDefinicionProducto)>("ObtenerDefinicionProducto");
    return replyOf([&](char *reply, std::int32_t *) {
        return function(productType, key.c_str(), ministoreId.c_str(), reply);
    });
}

ErpLibrary::Reply ErpLibrary::taxes()
{
    const auto function = symbol<decltype(&ObtenerImpuestos)>("ObtenerImpuestos");
    return replyOf([&](char *reply, std::int32_t *) { return function(reply); });
}
