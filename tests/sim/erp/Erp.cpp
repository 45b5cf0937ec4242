#include "Erp.h"

#include "platform/connectors/ConnectorAbi.h"

#include <algorithm>

namespace {

constexpr std::size_t kGuard = 64;
constexpr char kGuardByte = '#';

template <typename Call> Erp::Reply replyOf(Call call, const Erp::Buffer *position = nullptr)
{
    Erp::Reply reply;
    Erp::Buffer buffer(65535);
    std::int32_t count = 0;
    reply.code = call(buffer.data(), &count);
    reply.text = buffer.text();
    reply.guardIntact = buffer.guardIntact() && (position == nullptr || position->guardIntact());
    reply.parsed = static_cast<bool>(reply.document.load_string(reply.text.c_str()));
    return reply;
}

} // namespace

Erp::Buffer::Buffer(std::size_t size) : m_size(size), m_bytes(size + kGuard, kGuardByte)
{
    std::fill_n(m_bytes.begin(), size, '\0');
}

bool Erp::Buffer::guardIntact() const
{
    return std::all_of(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_size), m_bytes.end(),
                       [](char c) { return c == kGuardByte; });
}

std::vector<std::string> Erp::Reply::texts(const std::string &xpath) const
{
    std::vector<std::string> result;
    pugi::xpath_node_set nodes = document.select_nodes(xpath.c_str());
    nodes.sort();
    for (const pugi::xpath_node &node : nodes) {
        result.emplace_back(node.attribute() ? node.attribute().value() : node.node().text().get());
    }
    return result;
}

Erp::Query Erp::categoryQuery(std::int32_t productType, const std::string &categoryId)
{
    return Query{false, productType, categoryId, 1, "", 50, "", Buffer(100)};
}

Erp::Query Erp::searchQuery(std::int32_t productType, std::int32_t queryType,
                            const std::string &text)
{
    return Query{true, productType, "", queryType, text, 50, "", Buffer(1000)};
}

Erp::Reply Erp::virtualDeposits()
{
    Buffer position(1000);
    return replyOf(
        [&](char *reply, std::int32_t *count) {
            return ListarDepositosVirtuales(50, position.data(), 0, count, reply);
        },
        &position);
}

Erp::Reply Erp::page(Query &query, bool forward)
{
    return replyOf(
        [&](char *reply, std::int32_t *count) {
            const std::int32_t direction = forward ? 0 : 1;
            return query.isSearch
                       ? BusquedaProductosIndividual(query.productType, query.queryType,
                                                     query.searchText.data(), query.querySize,
                                                     query.position.data(), direction,
                                                     query.ministoreId.c_str(), count, reply)
                       : ObtenerContenidoCategoria(query.productType, query.categoryId.data(),
                                                   query.querySize, query.position.data(),
                                                   direction, query.ministoreId.c_str(), count,
                                                   reply);
        },
        &query.position);
}

Erp::Reply Erp::definition(std::int32_t productType, const std::string &key,
                           const std::string &ministoreId)
{
    return replyOf([&](char *reply, std::int32_t *) {
        return ObtenerDefinicionProducto(productType, key.c_str(), ministoreId.c_str(), reply);
    });
}

Erp::Reply Erp::taxes()
{
    return replyOf([](char *reply, std::int32_t *) { return ObtenerImpuestos(reply); });
}
