#include "ScriptedErp.h"

#include "gateways/DovelAPI.h"

#include <algorithm>
#include <cstring>

std::vector<ScriptedErp::Call> ScriptedErp::callsOf(const std::string &function) const
{
    std::vector<Call> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const Call &call) { return call.function == function; });
    return found;
}

ScriptedErp::Answer ScriptedErp::next(Call call, char *position, std::size_t positionSize,
                                      char *reply)
{
    std::deque<Answer> &queued = m_answers[call.function];
    Answer answer;
    if (!queued.empty()) {
        answer = queued.front();
        queued.pop_front();
    }
    calls.push_back(std::move(call));
    if (position != nullptr && !answer.position.empty())
        std::strncpy(position, answer.position.c_str(), positionSize - 1);
    std::strncpy(reply, answer.reply.c_str(), DovelAPI::kReplySize - 1);
    return answer;
}

std::int32_t ScriptedErp::ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                                    std::int32_t querySize, char *position,
                                                    std::int32_t direction,
                                                    const char *ministoreId, std::int32_t *count,
                                                    char *reply)
{
    *count = 0;
    return next({"ObtenerContenidoCategoria", productType, 0, categoryId, querySize, position,
                 direction, ministoreId},
                position, DovelAPI::kCategoryPositionSize, reply)
        .code;
}

std::int32_t ScriptedErp::BusquedaProductosIndividual(std::int32_t productType,
                                                      std::int32_t queryType, char *searchText,
                                                      std::int32_t querySize, char *lastId,
                                                      std::int32_t direction,
                                                      const char *ministoreId, std::int32_t *count,
                                                      char *reply)
{
    *count = 0;
    return next({"BusquedaProductosIndividual", productType, queryType, searchText, querySize,
                 lastId, direction, ministoreId},
                lastId, DovelAPI::kLastIdSize, reply)
        .code;
}

std::int32_t ScriptedErp::ObtenerDefinicionProducto(std::int32_t productType, const char *key,
                                                    const char *ministoreId, char *reply)
{
    return next({"ObtenerDefinicionProducto", productType, 0, key, 0, "", 0, ministoreId}, nullptr,
                0, reply)
        .code;
}

std::string erpProducts(int first, int last, const std::string &prefix)
{
    std::string xml;
    for (int i = first; i <= last; ++i) {
        const std::string n = std::to_string(i);
        xml += "<Producto><CodigoDovel>" + prefix + n + "</CodigoDovel><Descripcion>Artículo " +
               n + "</Descripcion><Referencia>R" + n + "</Referencia></Producto>";
    }
    return xml;
}

std::string categoryReply(const std::string &currentId, const std::string &currentName,
                          const std::vector<std::pair<std::string, std::string>> &children,
                          const std::string &products)
{
    std::string xml = "<ObtenerContenidoCategoria><CategoriaActual nombre='" + currentName +
                      "' id='" + currentId + "'/><Categorias>";
    for (const auto &[name, id] : children)
        xml += "<Categoria nombre='" + name + "' id='" + id + "'/>";
    return xml + "</Categorias><Productos NumeroProductos='0'>" + products +
           "</Productos></ObtenerContenidoCategoria>";
}

std::string searchReply(const std::string &products)
{
    return "<BusquedaProductosIndividual><Productos NumeroProductos='0'>" + products +
           "</Productos></BusquedaProductosIndividual>";
}
