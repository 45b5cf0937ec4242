#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A misbehaviour of one function of a sandbox connector library, named by an environment
/// variable (ASISTENTE_ERP_SIM_FAULT, ASISTENTE_BACKOFFICE_SIM_FAULT) so that a test, or a
/// person trying the assistant, can make a call fail the way a real connector fails.
///
/// The variable holds `function[:operation]:fault`, several separated by ';'. The operation
/// selects one back-office operation of EjecutarOperacionW; without it every call of the
/// function misbehaves. Faults:
///   codigo=N               the call answers N and writes no reply
///   bytes=N                the usual reply, padded inside its root element to N bytes; a reply
///                          that does not fit the caller's buffer is cut to leave room for NUL
///   sin-nul                the usual reply padded to fill the whole buffer, with no NUL at all
///   xml-roto               the usual reply without the closing tag of its root element
///   no-utf8                the usual reply with its accented letters written in ISO-8859-1
///   sesion-perdida         (back office) the session of the first such call after the
///                          library is loaded is lost: that call answers -2005, and so does any
///                          later call with that session
///   sesion-perdida-siempre (back office) every such call answers -2005
/// The variable is read at each call; a text it cannot read is told on standard error and
/// ignored.
struct ConnectorFault
{
    enum class Kind { Code, Bytes, NoNul, Malformed, NotUtf8, LostSession, LostForGood };

    Kind kind = Kind::Code;
    std::int32_t value = 0;

    /// The first fault of `variable` for `function` (and `operation`, when the caller has one).
    static std::optional<ConnectorFault> named(const char *variable, std::string_view function,
                                               std::optional<std::int32_t> operation = {});

    /// Writes `reply` into the caller's buffer of `size` bytes as `fault` says (nullptr: as a
    /// sound library does, NUL-terminated and cut to the buffer). Never writes past `size`.
    static void deliver(std::string reply, const ConnectorFault *fault, char *buffer,
                        std::size_t size);
};
