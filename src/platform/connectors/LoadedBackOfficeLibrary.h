#pragma once

#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/SharedLibrary.h"

/// The real back-office library: libqdx.so, or the full path in ASISTENTE_BACKOFFICE_LIBRARY,
/// loaded at the first call. Each function is looked up at its own first call, so a missing
/// library (53) or function (453) is raised by the call that needs it (see SharedLibrary).
class LoadedBackOfficeLibrary : public BackOfficeLibrary
{
public:
    LoadedBackOfficeLibrary();

    std::int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2,
                                std::int32_t clientNumber, std::int32_t *sessionId) override;
    std::int32_t CerrarSesionW(std::int32_t sessionId) override;
    std::int32_t EjecutarOperacionW(std::int32_t operationId, std::int32_t sessionId,
                                    const char *request, char *reply,
                                    std::int32_t replySize) override;

private:
    SharedLibrary m_library;
};
