#pragma once

#include <cstdint>
#include <memory>

/// The three functions of the marketplace's back-office library, with the buffers and results
/// of its C interface: the reply buffer is owned and sized by the caller, int32_t results, 0 for
/// success. The gateways call it through this class so that tests can put an in-process fake in
/// place.
class BackOfficeLibrary
{
public:
    virtual ~BackOfficeLibrary() = default;

    virtual std::int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2,
                                        std::int32_t clientNumber, std::int32_t *sessionId) = 0;
    virtual std::int32_t CerrarSesionW(std::int32_t sessionId) = 0;
    virtual std::int32_t EjecutarOperacionW(std::int32_t operationId, std::int32_t sessionId,
                                            const char *request, char *reply,
                                            std::int32_t replySize) = 0;
};

/// The back-office library of the process: the one given to setBackOfficeLibrary, else the
/// real library (LoadedBackOfficeLibrary), made at the first use. Only for the user-interface
/// thread; a reference held across a setBackOfficeLibrary call is left dangling.
BackOfficeLibrary &backOfficeLibrary();

/// Puts `library` in place of the real back-office library for the whole process; nullptr goes
/// back to the real one.
void setBackOfficeLibrary(std::shared_ptr<BackOfficeLibrary> library);
