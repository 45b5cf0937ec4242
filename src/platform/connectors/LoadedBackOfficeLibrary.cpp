#include "platform/connectors/LoadedBackOfficeLibrary.h"

#include "platform/connectors/ConnectorAbi.h"

// The library's own declaration gives the type, so a signature that drifts from the C
// interface fails to compile instead of corrupting the stack.
#define BACK_OFFICE_FUNCTION(name) m_library.function<decltype(::name)>(#name)

LoadedBackOfficeLibrary::LoadedBackOfficeLibrary()
    : m_library("ASISTENTE_BACKOFFICE_LIBRARY", "libqdx.so")
{
}

std::int32_t LoadedBackOfficeLibrary::IniciarSesionW(const char *clientKey1,
                                                     const char *clientKey2,
                                                     std::int32_t clientNumber,
                                                     std::int32_t *sessionId)
{
    return BACK_OFFICE_FUNCTION(IniciarSesionW)(clientKey1, clientKey2, clientNumber, sessionId);
}

std::int32_t LoadedBackOfficeLibrary::CerrarSesionW(std::int32_t sessionId)
{
    return BACK_OFFICE_FUNCTION(CerrarSesionW)(sessionId);
}

std::int32_t LoadedBackOfficeLibrary::EjecutarOperacionW(std::int32_t operationId,
                                                         std::int32_t sessionId,
                                                         const char *request, char *reply,
                                                         std::int32_t replySize)
{
    return BACK_OFFICE_FUNCTION(EjecutarOperacionW)(operationId, sessionId, request, reply,
                                                    replySize);
}
