#pragma once

#include "FakeConnectors.h"
#include "gateways/DovelAPI.h"

#include <cstring>
#include <string>

/// The demo seller's ERP whose lists and product details answer with the bytes under test, as
/// the connector library would write them into the caller's buffer: cut to the buffer, and
/// without a closing NUL when they fill it.
class FuzzErp : public FakeErp
{
public:
    std::int32_t ObtenerContenidoCategoria(std::int32_t, char *, std::int32_t, char *, std::int32_t,
                                           const char *, std::int32_t *, char *reply) override
    {
        return answer(reply);
    }
    std::int32_t BusquedaProductosIndividual(std::int32_t, std::int32_t, char *, std::int32_t,
                                             char *, std::int32_t, const char *, std::int32_t *,
                                             char *reply) override
    {
        return answer(reply);
    }
    std::int32_t ObtenerDefinicionProducto(std::int32_t, const char *, const char *,
                                           char *reply) override
    {
        return answer(reply);
    }

    /// What the three calls above write, and the code they return.
    std::string reply;
    std::int32_t code = 0;

private:
    std::int32_t answer(char *buffer) const
    {
        const std::size_t length = std::min(reply.size(), DovelAPI::kReplySize);
        std::memcpy(buffer, reply.data(), length);
        if (length < DovelAPI::kReplySize)
            buffer[length] = '\0';
        return code;
    }
};
