// The C entry points: each one reads its arguments, lets ErpService answer, and copies the
// answer into the caller's buffers. No failure leaves a function other than as a code.
// ASISTENTE_ERP_SIM_FAULT makes a call misbehave (sim/backoffice/ConnectorFault.h).

#include "backoffice/ConnectorFault.h"
#include "platform/core/RaisedError.h"
#include "sim/erp/CallerBuffer.h"
#include "sim/erp/ErpReturnCode.h"
#include "sim/erp/ErpService.h"
#include "platform/connectors/ConnectorAbi.h"

#include <cstdio>
#include <exception>

namespace {

constexpr const char *kFaultVariable = "ASISTENTE_ERP_SIM_FAULT";

std::string textOf(const char *text)
{
    return text == nullptr ? std::string() : std::string(text);
}

// Failures are told on standard error too: the code alone does not say which row or file.
// A fault that names a code answers it before any work, leaving the buffers as they were.
template <typename Work> int32_t guarded(const char *function, Work work)
{
    try {
        const auto fault = ConnectorFault::named(kFaultVariable, function);
        if (fault && fault->kind == ConnectorFault::Kind::Code) {
            return fault->value;
        }
        return work(fault ? &*fault : nullptr);
    } catch (const RaisedError &error) {
        std::fprintf(stderr, "libzrvndll: %s: %d %s\n", function, error.number(),
                     error.description().c_str());
        return error.number();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "libzrvndll: %s: %s\n", function, error.what());
        return ErpReturnCode::InternalFailure;
    } catch (...) {
        return ErpReturnCode::InternalFailure;
    }
}

ErpService service()
{
    return ErpService(ErpDataSet::current());
}

void requireBuffers(std::initializer_list<const void *> buffers)
{
    for (const void *buffer : buffers) {
        if (buffer == nullptr) {
            raiseError(ErpReturnCode::InvalidArgument, "Falta un búfer de salida");
        }
    }
}

int32_t deliver(const ErpAnswer &answer, char *position, std::size_t positionSize, int32_t *count,
                char *reply, const ConnectorFault *fault)
{
    if (answer.position) {
        copyToCallerBuffer(*answer.position, position, positionSize);
    }
    if (count != nullptr) {
        *count = answer.count;
    }
    ConnectorFault::deliver(answer.reply, fault, reply, CallerBufferSize::Reply);
    return answer.code;
}

int32_t deliver(const ErpFields &fields, std::initializer_list<char *> buffers)
{
    auto text = fields.strings.begin();
    for (char *buffer : buffers) {
        copyToCallerBuffer(*text++, buffer, CallerBufferSize::ClientString);
    }
    return fields.code;
}

} // namespace

extern "C" {

int32_t ObtenerIDCliente(int32_t *clientNumber, char *license, char *clientKey2, char *id)
{
    return guarded(__func__, [&](const ConnectorFault *) {
        requireBuffers({clientNumber, license, clientKey2, id});
        const ErpFields fields = service().clientIdentity();
        *clientNumber = fields.clientNumber;
        return deliver(fields, {license, clientKey2, id});
    });
}

int32_t ObtenerDataBase(char *server, char *database, char *user, char *password)
{
    return guarded(__func__, [&](const ConnectorFault *) {
        requireBuffers({server, database, user, password});
        return deliver(service().databaseCoordinates(), {server, database, user, password});
    });
}

int32_t ListarDepositosVirtuales(int32_t querySize, char *position, int32_t direction,
                                 int32_t *count, char *reply)
{
    return guarded(__func__, [&](const ConnectorFault *fault) {
        requireBuffers({position, reply});
        reply[0] = '\0';
        return deliver(service().virtualDeposits(querySize, position, direction), position,
                       CallerBufferSize::DepositPosition, count, reply, fault);
    });
}

int32_t ObtenerContenidoCategoria(int32_t productType, char *categoryId, int32_t querySize,
                                  char *position, int32_t direction, const char *ministoreId,
                                  int32_t *count, char *reply)
{
    return guarded(__func__, [&](const ConnectorFault *fault) {
        requireBuffers({position, reply});
        reply[0] = '\0';
        return deliver(service().categoryContents(productType, textOf(categoryId), querySize,
                                                  position, direction, textOf(ministoreId)),
                       position, CallerBufferSize::CategoryPosition, count, reply, fault);
    });
}

int32_t BusquedaProductosIndividual(int32_t productType, int32_t queryType, char *searchText,
                                    int32_t querySize, char *lastId, int32_t direction,
                                    const char *ministoreId, int32_t *count, char *reply)
{
    return guarded(__func__, [&](const ConnectorFault *fault) {
        requireBuffers({lastId, reply});
        reply[0] = '\0';
        return deliver(service().productSearch(productType, queryType, textOf(searchText),
                                               querySize, lastId, direction, textOf(ministoreId)),
                       lastId, CallerBufferSize::SearchLastId, count, reply, fault);
    });
}

int32_t ObtenerDefinicionProducto(int32_t productType, const char *key, const char *ministoreId,
                                  char *reply)
{
    return guarded(__func__, [&](const ConnectorFault *fault) {
        requireBuffers({reply});
        reply[0] = '\0';
        return deliver(service().productDefinition(productType, textOf(key), textOf(ministoreId)),
                       nullptr, 0, nullptr, reply, fault);
    });
}

int32_t ObtenerImpuestos(char *reply)
{
    return guarded(__func__, [&](const ConnectorFault *fault) {
        requireBuffers({reply});
        reply[0] = '\0';
        return deliver(service().taxes(), nullptr, 0, nullptr, reply, fault);
    });
}

} // extern "C"
