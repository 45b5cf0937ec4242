// A small real library with part of the connectors' C interface, built by the tests so that
// loading, calling and the missing-function path go through dlopen for real. It leaves out
// ObtenerImpuestos and CerrarSesionW on purpose.
#include "platform/connectors/ConnectorAbi.h"

#include <cstdio>
#include <cstring>

int32_t ObtenerIDCliente(int32_t *clientNumber, char *license, char *clientKey2, char *id)
{
    *clientNumber = 4711;
    std::strcpy(license, "LIC-0042");
    std::strcpy(clientKey2, "clave-dos");
    std::strcpy(id, "vendedor-7");
    return 0;
}

int32_t IniciarSesionW(const char *clientKey1, const char *, int32_t clientNumber,
                       int32_t *sessionId)
{
    *sessionId = clientNumber + 1;
    return std::strcmp(clientKey1, "LIC-0042") == 0 ? 0 : -2005;
}

int32_t EjecutarOperacionW(int32_t operationId, int32_t sessionId, const char *request,
                           char *reply, int32_t replySize)
{
    std::snprintf(reply, static_cast<size_t>(replySize), "<R op=\"%d\" s=\"%d\">%s</R>",
                  operationId, sessionId, request);
    return 0;
}
