#pragma once

#include "FaultProxy.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

/// How a fault ends for the person at the screen.
enum class FaultEnd {
    PlatformError, ///< the platform's fatal error: the generic box, then the program closes
    Delivered,     ///< slow but whole: the data arrives as if nothing happened
    WrongDocument, ///< the system's own complaint about the reply, as each caller words it
};

/// One way the marketplace's side of the wire can fail, scripted on the proxy.
struct NetworkFaultCase
{
    const char *name;
    /// The fault for the request under test; none: the proxy refuses every connection.
    std::optional<FaultRule> rule;
    FaultEnd end;
    /// What the log line's description carries (the transport's or the service's words).
    const char *logged;
};

/// The marketplace's faults, each aimed at the requests whose SOAPAction (or path) holds
/// `action`; `renames` give the wrong element names for its reply.
inline std::vector<NetworkFaultCase>
networkFaults(const std::string &path, const std::string &action,
              std::vector<std::pair<std::string, std::string>> renames)
{
    using std::chrono::milliseconds;
    const auto aimed = [&](NetworkFault fault, milliseconds pause = milliseconds(0)) {
        FaultRule rule{fault, path, action, 0, {}, milliseconds(0)};
        rule.dripPause = pause;
        return rule;
    };
    FaultRule renamed = aimed(NetworkFault::Rename);
    renamed.renames = std::move(renames);
    return {
        {"connectionRefused", std::nullopt, FaultEnd::PlatformError, "Couldn't connect"},
        {"acceptedThenSilent", aimed(NetworkFault::Silent), FaultEnd::PlatformError,
         "quedó sin respuesta: el servidor no envió nada en 1 s"},
        {"dripsSlowerThanTheLimit", aimed(NetworkFault::Drip, milliseconds(3000)),
         FaultEnd::PlatformError, "quedó sin respuesta: el servidor no envió nada en 1 s"},
        {"dripsAByteAtATimeToTheEnd", aimed(NetworkFault::Drip), FaultEnd::Delivered, ""},
        {"cutInTheMiddleOfTheBody", aimed(NetworkFault::Cut), FaultEnd::PlatformError,
         "falló: Transferred a partial file"},
        {"http500WithASoapFault", aimed(NetworkFault::SoapFault), FaultEnd::PlatformError,
         "soap:Server: Servicio detenido por mantenimiento"},
        {"aReplyThatIsNotXml", aimed(NetworkFault::NotXml), FaultEnd::PlatformError,
         "Servicio no disponible: vuelva a intentarlo en unos minutos"},
        {"aReplyLargerThanAnyBuffer", aimed(NetworkFault::Endless), FaultEnd::PlatformError,
         "fue abandonada: la respuesta supera el máximo de 33554432 bytes"},
        {"wrongElementNames", renamed, FaultEnd::WrongDocument, ""},
    };
}

/// The box of a platform error, before "La aplicación será cerrada".
inline const char *const kPlatformErrorBox =
    "Error: 440: Error de la aplicación. Contacte al administrador del sistema";
