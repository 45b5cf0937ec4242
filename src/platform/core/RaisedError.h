#pragma once

#include <cstdint>
#include <exception>
#include <string>

/// The source that an error raised by the platform or the runtime carries until a handler
/// names the procedure it was caught in.
inline constexpr const char *kDefaultErrorSource = "Zorvanta";

/// Numbers of the errors that are not the system's own. All positive, so the failure path
/// treats every one of them as fatal.
namespace RuntimeErrorNumber {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t PathFileAccess = 75;
inline constexpr std::int32_t PathNotFound = 76;
inline constexpr std::int32_t ObjectNotSet = 91;
/// A component outside the program (the SOAP service, the HTTP transport) failed.
inline constexpr std::int32_t AutomationError = 440;
inline constexpr std::int32_t EntryPointNotFound = 453;
inline constexpr std::int32_t DuplicateKey = 457;
} // namespace RuntimeErrorNumber

/// The error in flight: number, source and description. Every failure in the program is
/// one of these; the handlers of the shell turn it into a log line and a message box.
class RaisedError : public std::exception
{
public:
    RaisedError(std::int32_t number, std::string description,
                std::string source = kDefaultErrorSource);

    std::int32_t number() const noexcept { return m_number; }
    const std::string &source() const noexcept { return m_source; }
    const std::string &description() const noexcept { return m_description; }
    void setSource(std::string source) { m_source = std::move(source); }

    const char *what() const noexcept override { return m_description.c_str(); }

private:
    std::int32_t m_number;
    std::string m_source;
    std::string m_description;
};

/// The runtime's own text for one of the RuntimeErrorNumber values, as the person would read it.
std::string runtimeErrorText(std::int32_t number);

/// Throws a RaisedError with the runtime's own text for `number`.
[[noreturn]] void raiseRuntimeError(std::int32_t number);

/// Throws a RaisedError. The default source marks it as not yet named by a handler.
[[noreturn]] void raiseError(std::int32_t number, std::string description,
                             std::string source = kDefaultErrorSource);
