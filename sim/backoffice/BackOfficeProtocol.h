#pragma once

#include <cstdint>

/// The wire between the back-office library and the marketplace's back-office endpoint.
///
/// Three POST requests, all answered with HTTP 200 and a header carrying the connector code:
///   POST /qdx/IniciarSesion?clave1=K1&clave2=K2&cliente=N       body: empty
///        reply body: the new session id in decimal when the code is 0
///   POST /qdx/CerrarSesion?sesion=S                              body: empty
///   POST /qdx/EjecutarOperacion?operacion=O&sesion=S             body: the request XML
///        reply body: the reply XML; header Qdx-Operacion echoes O
/// A reply without the code header, or with any other HTTP status, is a broken receive.
namespace BackOfficeProtocol {
inline constexpr const char *kOpenPath = "/qdx/IniciarSesion";
inline constexpr const char *kClosePath = "/qdx/CerrarSesion";
inline constexpr const char *kExecutePath = "/qdx/EjecutarOperacion";
inline constexpr const char *kCodeHeader = "Qdx-Codigo";
inline constexpr const char *kOperationHeader = "Qdx-Operacion";
} // namespace BackOfficeProtocol

/// The connector's own return codes, all in the band the system treats as "the session may
/// be lost, reopen it once and retry".
namespace QdxCode {
inline constexpr std::int32_t Success = 0;
inline constexpr std::int32_t TcpMessage = -2049;
inline constexpr std::int32_t ConnectFailed = -2048;
inline constexpr std::int32_t SendFailed = -2047;
inline constexpr std::int32_t ReceiveFailed = -2045;
inline constexpr std::int32_t EmptyInput = -2044;
inline constexpr std::int32_t OperationMismatch = -2043;
inline constexpr std::int32_t BadParameters = -2042;
inline constexpr std::int32_t InvalidAddress = -2035;
/// Wrong client keys or number at open, and also any unknown or lost session at execution.
inline constexpr std::int32_t SessionOpenFailed = -2005;
/// Closing a session that the back office does not hold.
inline constexpr std::int32_t SessionCloseFailed = -2004;

/// True for the codes the connector itself produces.
constexpr bool isConnectorCode(std::int32_t code)
{
    return code <= -2000 && code >= -3999;
}
} // namespace QdxCode
