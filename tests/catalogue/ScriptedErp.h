#pragma once

#include "FakeConnectors.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

/// The demo seller's ERP, in process, whose catalogue functions answer from queues: each call
/// takes the next answer queued for its function (code 0 and an empty reply when none is) and
/// is recorded with its arguments.
class ScriptedErp : public FakeErp
{
public:
    struct Answer
    {
        std::int32_t code = 0;
        std::string reply;
        /// Written into the caller's position buffer, as the ERP marks where a page ended.
        std::string position;
    };
    struct Call
    {
        std::string function;
        std::int32_t productType = 0;
        std::int32_t queryType = 0;
        /// The category id, the search text or the detail's key.
        std::string text;
        std::int32_t querySize = 0;
        /// The position buffer as the caller handed it.
        std::string position;
        std::int32_t direction = 0;
        std::string ministoreId;
    };

    void queue(const std::string &function, Answer answer)
    {
        m_answers[function].push_back(std::move(answer));
    }
    std::vector<Call> callsOf(const std::string &function) const;

    std::int32_t ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                           std::int32_t querySize, char *position,
                                           std::int32_t direction, const char *ministoreId,
                                           std::int32_t *count, char *reply) override;
    std::int32_t BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType,
                                             char *searchText, std::int32_t querySize,
                                             char *lastId, std::int32_t direction,
                                             const char *ministoreId, std::int32_t *count,
                                             char *reply) override;
    std::int32_t ObtenerDefinicionProducto(std::int32_t productType, const char *key,
                                           const char *ministoreId, char *reply) override;

    std::vector<Call> calls;

private:
    Answer next(Call call, char *position, std::size_t positionSize, char *reply);

    std::map<std::string, std::deque<Answer>> m_answers;
};

/// `<Producto>` lines with CodigoDovel ids prefix+1..prefix+count, descriptions and references.
std::string erpProducts(int first, int last, const std::string &prefix = "P-");
/// An ObtenerContenidoCategoria reply: the current category, the children (nombre, id pairs)
/// and the product lines.
std::string categoryReply(const std::string &currentId, const std::string &currentName,
                          const std::vector<std::pair<std::string, std::string>> &children,
                          const std::string &products);
/// A BusquedaProductosIndividual reply holding the product lines.
std::string searchReply(const std::string &products);
