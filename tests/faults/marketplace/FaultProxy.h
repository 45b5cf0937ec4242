#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// What the proxy does to one request instead of passing the marketplace's reply through.
enum class NetworkFault {
    Silent,    ///< reads the request and never answers
    Drip,      ///< passes the whole reply, headers included, one byte at a time
    Cut,       ///< sends the headers and half the body, then closes
    SoapFault, ///< answers HTTP 500 with a SOAP Fault
    NotXml,    ///< answers 200 with a body of plain text
    Endless,   ///< answers 200 with a body that never ends
    Rename,    ///< passes the reply with names in its body written as others
};

/// Which request gets which fault: the request whose target holds `path` and whose SOAPAction
/// holds `action` (empty: any), its `ordinal`-th such request counting from 1 (0: every one).
struct FaultRule
{
    NetworkFault fault;
    std::string path;
    std::string action;
    int ordinal = 0;
    /// For Rename: each text found in the body, in order, and what it becomes.
    std::vector<std::pair<std::string, std::string>> renames;
    std::chrono::milliseconds dripPause{10};
};

/// A loopback HTTP proxy of the test's own in front of a marketplace: each connection carries
/// one request, passed on to the marketplace unless a rule scripts a fault for it. Runs on
/// threads of its own until it is destroyed, which also ends every silent or dripping reply.
class FaultProxy
{
public:
    /// Listens on a free loopback port; `upstream` is "http://127.0.0.1:N".
    explicit FaultProxy(const std::string &upstream);
    ~FaultProxy();
    FaultProxy(const FaultProxy &) = delete;
    FaultProxy &operator=(const FaultProxy &) = delete;

    /// "http://127.0.0.1:N" of the proxy, for ASISTENTE_MARKETPLACE_URL.
    std::string url() const;

    void add(FaultRule rule);

    /// Stops listening: from now on a connection to the proxy is refused.
    void refuseConnections();

    /// The rules that have not yet taken a request, each described with every request seen
    /// ("POST /path Action <- fault"); a test ends with none.
    std::vector<std::string> unusedRules() const;

private:
    struct Rule
    {
        FaultRule rule;
        int seen = 0;
        int taken = 0;
    };

    void acceptLoop();
    void serve(int client);
    const FaultRule *ruleFor(const std::string &target, const std::string &action,
                             std::string &record);
    bool waitUnlessStopping(std::chrono::milliseconds pause);

    std::uint16_t m_upstreamPort = 0;
    std::uint16_t m_port = 0;
    int m_listener = -1;
    std::atomic<bool> m_stopping{false};
    mutable std::mutex m_mutex;
    std::condition_variable m_stopped;
    std::vector<Rule> m_rules;
    std::vector<std::string> m_requests;
    std::vector<std::thread> m_connections;
    std::thread m_acceptor;
};
