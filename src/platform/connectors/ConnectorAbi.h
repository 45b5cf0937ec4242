#pragma once

/* The functions the ERP library (libzrvndll.so) and the back-office library (libqdx.so)
   export with C linkage and default visibility. Every char buffer is owned and sized by the
   caller; the library writes a NUL-terminated text into it and never allocates for the caller.
   Every result is 0 on success. Plain C, so that the libraries themselves can include it. */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The libraries may hide everything else; these stay visible to dlsym. */
#define ASISTENTE_CONNECTOR_EXPORT __attribute__((visibility("default")))

/* back office */
ASISTENTE_CONNECTOR_EXPORT int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2,
                                                  int32_t clientNumber, int32_t *sessionId);
ASISTENTE_CONNECTOR_EXPORT int32_t CerrarSesionW(int32_t sessionId);
ASISTENTE_CONNECTOR_EXPORT int32_t EjecutarOperacionW(int32_t operationId, int32_t sessionId,
                                                      const char *request, char *reply,
                                                      int32_t replySize);

/* ERP */
ASISTENTE_CONNECTOR_EXPORT int32_t ObtenerIDCliente(int32_t *clientNumber, char *license,
                                                    char *clientKey2, char *id);
ASISTENTE_CONNECTOR_EXPORT int32_t ObtenerDataBase(char *server, char *database, char *user,
                                                   char *password);
ASISTENTE_CONNECTOR_EXPORT int32_t ListarDepositosVirtuales(int32_t querySize, char *position,
                                                            int32_t direction, int32_t *count,
                                                            char *reply);
ASISTENTE_CONNECTOR_EXPORT int32_t ObtenerContenidoCategoria(int32_t productType, char *categoryId,
                                                             int32_t querySize, char *position,
                                                             int32_t direction,
                                                             const char *ministoreId,
                                                             int32_t *count, char *reply);
ASISTENTE_CONNECTOR_EXPORT int32_t BusquedaProductosIndividual(
    int32_t productType, int32_t queryType, char *searchText, int32_t querySize, char *lastId,
    int32_t direction, const char *ministoreId, int32_t *count, char *reply);
ASISTENTE_CONNECTOR_EXPORT int32_t ObtenerDefinicionProducto(int32_t productType, const char *key,
                                                             const char *ministoreId, char *reply);
ASISTENTE_CONNECTOR_EXPORT int32_t ObtenerImpuestos(char *reply);

#ifdef __cplusplus
}
#endif
