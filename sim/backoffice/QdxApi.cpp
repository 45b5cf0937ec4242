#include "backoffice/BackOfficeConnection.h"
#include "backoffice/BackOfficeProtocol.h"
#include "backoffice/ConnectorFault.h"
#include "platform/connectors/ConnectorAbi.h"

#include <mutex>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr const char *kFaultVariable = "ASISTENTE_BACKOFFICE_SIM_FAULT";

// Sessions that a "sesion-perdida" fault has lost, and the operations whose one loss has
// happened, for as long as the library stays loaded.
struct LostSessions
{
    std::mutex mutex;
    std::set<int32_t> sessions;
    std::set<int32_t> spentOperations;
};

LostSessions &lostSessions()
{
    static LostSessions lost;
    return lost;
}

bool sessionLost(int32_t operationId, int32_t sessionId, const ConnectorFault *fault)
{
    LostSessions &lost = lostSessions();
    const std::lock_guard lock(lost.mutex);
    if (fault != nullptr && fault->kind == ConnectorFault::Kind::LostForGood)
        return true;
    if (fault != nullptr && fault->kind == ConnectorFault::Kind::LostSession &&
        lost.spentOperations.insert(operationId).second) {
        lost.sessions.insert(sessionId);
    }
    return lost.sessions.count(sessionId) != 0;
}

} // namespace

// The back office's three functions over HTTP to feria-sim (ASISTENTE_MARKETPLACE_URL).
// Wrong keys or number and an unknown or lost session give -2005, closing an unknown session
// -2004, a refused connection -2048 (BackOfficeProtocol.h has the rest). A reply longer than
// the caller's buffer is cut at replySize - 1; on a non-zero code the reply is left as it was.
// ASISTENTE_BACKOFFICE_SIM_FAULT makes a call misbehave (ConnectorFault.h).
// Nothing may leave these functions as an exception: the caller is C.
extern "C" {

int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2, int32_t clientNumber,
                       int32_t *sessionId)
{
    if (clientKey1 == nullptr || clientKey2 == nullptr || sessionId == nullptr) {
        return QdxCode::BadParameters;
    }
    if (const auto fault = ConnectorFault::named(kFaultVariable, "IniciarSesionW");
        fault && fault->kind == ConnectorFault::Kind::Code) {
        return fault->value;
    }
    try {
        BackOfficeConnection connection(BackOfficeConnection::marketplaceUrl());
        return connection.openSession(clientKey1, clientKey2, clientNumber, *sessionId);
    } catch (...) {
        return QdxCode::TcpMessage;
    }
}

int32_t CerrarSesionW(int32_t sessionId)
{
    if (const auto fault = ConnectorFault::named(kFaultVariable, "CerrarSesionW");
        fault && fault->kind == ConnectorFault::Kind::Code) {
        return fault->value;
    }
    try {
        BackOfficeConnection connection(BackOfficeConnection::marketplaceUrl());
        return connection.closeSession(sessionId);
    } catch (...) {
        return QdxCode::TcpMessage;
    }
}

int32_t EjecutarOperacionW(int32_t operationId, int32_t sessionId, const char *request,
                           char *reply, int32_t replySize)
{
    if (request == nullptr || reply == nullptr || replySize <= 0) {
        return QdxCode::BadParameters;
    }
    try {
        const auto fault = ConnectorFault::named(kFaultVariable, "EjecutarOperacionW", operationId);
        if (fault && fault->kind == ConnectorFault::Kind::Code) {
            return fault->value;
        }
        if (sessionLost(operationId, sessionId, fault ? &*fault : nullptr)) {
            return QdxCode::SessionOpenFailed;
        }
        BackOfficeConnection connection(BackOfficeConnection::marketplaceUrl());
        std::string text;
        const int32_t code = connection.execute(operationId, sessionId, request, text);
        if (code != QdxCode::Success) {
            return code;
        }
        ConnectorFault::deliver(std::move(text), fault ? &*fault : nullptr, reply,
                                static_cast<size_t>(replySize));
        return QdxCode::Success;
    } catch (...) {
        return QdxCode::TcpMessage;
    }
}

} // extern "C"
