#include "platform/connectors/ConnectorAbi.h"

#include "backoffice/BackOfficeConnection.h"
#include "backoffice/BackOfficeProtocol.h"

#include <algorithm>
#include <cstring>
#include <string>

// The back office's three functions over HTTP to feria-sim (ASISTENTE_MARKETPLACE_URL).
// Wrong keys or number and an unknown or lost session give -2005, closing an unknown session
// -2004, a refused connection -2048 (BackOfficeProtocol.h has the rest). A reply longer than
// the caller's buffer is cut at replySize - 1; on a non-zero code the reply is left as it was.
// Nothing may leave these functions as an exception: the caller is C.
extern "C" {

int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2, int32_t clientNumber,
                       int32_t *sessionId)
{
    if (clientKey1 == nullptr || clientKey2 == nullptr || sessionId == nullptr) {
        return QdxCode::BadParameters;
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
        BackOfficeConnection connection(BackOfficeConnection::marketplaceUrl());
        std::string text;
        const int32_t code = connection.execute(operationId, sessionId, request, text);
        if (code != QdxCode::Success) {
            return code;
        }
        // Cut to the caller's buffer, keeping room for the terminating NUL.
        const size_t length = std::min(text.size(), static_cast<size_t>(replySize) - 1);
        std::memcpy(reply, text.data(), length);
        reply[length] = '\0';
        return QdxCode::Success;
    } catch (...) {
        return QdxCode::TcpMessage;
    }
}

} // extern "C"
