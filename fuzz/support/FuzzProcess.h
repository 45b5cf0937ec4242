#pragma once

#include "FakeConnectors.h"
#include "FuzzErp.h"
#include "platform/core/RaisedError.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

class ZorvantaMinistore;

/// The process a fuzz target runs in, set up at the first use: a scratch working directory
/// whose log is /dev/null, the fake connectors in place of the two libraries, and the seller
/// as the holder of the back office's session.
class FuzzProcess
{
public:
    static FuzzProcess &get();

    FuzzErp &erp() { return *m_erp; }
    FakeBackOffice &backOffice() { return *m_backOffice; }

    /// The demo seller's store 100, as the two replies that describe it fill it: plan 300,
    /// active.
    static std::shared_ptr<ZorvantaMinistore> demoStore();

    /// Readies one input: the application running again (a fatal error of the last input
    /// closed it), no scripted back-office answers left, a new seller made on first use.
    void beginRun();

private:
    FuzzProcess();

    std::shared_ptr<FuzzErp> m_erp;
    std::shared_ptr<FakeBackOffice> m_backOffice;
};

/// The input as text.
inline std::string fuzzText(const std::uint8_t *data, std::size_t size)
{
    return std::string(reinterpret_cast<const char *>(data), size);
}

/// Splits an input that carries two documents at its first NUL: a NUL cuts a connector's
/// reply anyway, so no document loses anything it could have carried.
inline std::pair<std::string, std::string> fuzzTwoTexts(const std::uint8_t *data, std::size_t size)
{
    const std::string text = fuzzText(data, size);
    const std::size_t cut = text.find('\0');
    if (cut == std::string::npos)
        return {text, std::string()};
    return {text.substr(0, cut), text.substr(cut + 1)};
}

/// Runs a reader: the system's own errors are how it refuses a bad document, so they end the
/// input quietly; anything else escapes to the fuzzer as a finding.
template <class Body> void readExpectingOwnErrors(Body &&body)
{
    try {
        body();
    } catch (const RaisedError &) {
    }
}
