#pragma once

#include <stdint.h>

/* The back office's three functions, as the assistant loads them from libqdx.so.
 * Strings are NUL-terminated buffers owned by the caller; the library never allocates for the
 * caller and never writes past replySize. Results: 0 success, else a connector code
 * (-2000 to -3999, see backoffice/BackOfficeProtocol.h) or nothing else.
 * The marketplace's address is ASISTENTE_MARKETPLACE_URL (default http://127.0.0.1:8642). */
#ifdef __cplusplus
extern "C" {
#endif

/* Opens a session for the client; writes its id to *sessionId on success.
 * Wrong keys or number give -2005; a refused connection -2048. */
int32_t IniciarSesionW(const char *clientKey1, const char *clientKey2, int32_t clientNumber,
                       int32_t *sessionId);

/* Closes a session; an unknown one gives -2004. */
int32_t CerrarSesionW(int32_t sessionId);

/* Runs one back-office operation. The reply is written into reply as a NUL-terminated text,
 * cut at replySize - 1 characters when longer; on a non-zero code reply is left as it was.
 * An unknown or lost session gives -2005. */
int32_t EjecutarOperacionW(int32_t operationId, int32_t sessionId, const char *request,
                           char *reply, int32_t replySize);

#ifdef __cplusplus
}
#endif
