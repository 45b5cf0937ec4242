#pragma once

#include "shell/Collection.h"

#include <cstdint>
#include <string>

class XmlDocument;

/// Every reply of the back office fits in this many characters, NUL included.
inline constexpr std::int32_t kQdxReplySize = 65535;

/// Operations of the back office the assistant uses.
namespace QdxOperation {
inline constexpr std::int32_t ValidarUsuario = 8;
inline constexpr std::int32_t OperacionesCatalogo = 9;
inline constexpr std::int32_t ObtenerInformacionMinitiendas = 13;
inline constexpr std::int32_t ObtenerInformacionConfiguracion = 14;
inline constexpr std::int32_t SincronizarImpuestos = 16;
} // namespace QdxOperation

/// How many operations of each kind go in one request: by ProductID, then by OperationID.
/// Filled once at start-up.
extern Collection<Collection<std::int32_t>> gOperationLimits;

/// Runs one back-office operation and gives back the library's code; the reply, cut at its
/// first NUL, goes to `reply`. A code of the connector's own band means the session was lost:
/// it is closed and reopened once and the call repeated, and that second code is the result.
/// On an error of its own the result is 0 and `reply` is left as it was.
std::int32_t EjecutarOperacion(std::int32_t operationId, std::int32_t sessionId,
                               const std::string &request, std::string &reply,
                               std::int32_t size);

/// EjecutarOperacion in the seller's session `sessionId` with a reply of kQdxReplySize, giving
/// back the reply. A code other than 0 is raised from `source`, described as "Error llamando a
/// QDX.dll en EjecutarOperacion " + `operation` (as each caller writes it, separator included),
/// the code with a leading blank when it is not negative, ":" and QDXGetErrorMsg of the code.
std::string callQdxOperation(std::int32_t operationId, std::int32_t sessionId,
                             const std::string &request, const std::string &operation,
                             const std::string &source);

/// Reads the batch limits into gOperationLimits. This first use of the session is what makes the
/// seller and opens the session at start-up. False, after reporting, on any failure.
bool QDXGetOperationConfiguration();

/// The text for a code of the back-office library.
std::string QDXGetErrorMsg(std::int32_t code);

/// The back office's reply convention (see ReplyConvention).
bool isResult(XmlDocument &document);
bool isError(XmlDocument &document);
std::int32_t ErrorNumber(XmlDocument &document);
std::string errorDescription(XmlDocument &document);
