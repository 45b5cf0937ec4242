#pragma once

#include <deque>
#include <httplib.h>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// The marketplace's service on a free loopback port, in a thread of the test. It describes
/// itself with the real service's WSDL, answers each call with the next reply queued for its
/// operation (a bare success when none is), and keeps every call it received.
class CannedMarketplace
{
public:
    struct Call
    {
        std::string operation;
        std::vector<std::string> arguments;
    };

    CannedMarketplace();
    ~CannedMarketplace();
    CannedMarketplace(const CannedMarketplace &) = delete;
    CannedMarketplace &operator=(const CannedMarketplace &) = delete;

    /// "http://127.0.0.1:N", for ASISTENTE_MARKETPLACE_URL.
    std::string url() const;
    /// The document that the next call of `operation` gets back.
    void queue(const std::string &operation, std::string reply);
    /// The calls of `operation`, in the order they came.
    std::vector<Call> callsOf(const std::string &operation) const;

    /// A reply document named after `operation`, opening with a RESULT of success, holding
    /// `content`.
    static std::string reply(const std::string &operation, const std::string &content = {});
    /// A reply whose RESULT is the error `code` with `description`.
    static std::string error(const std::string &operation, int code,
                             const std::string &description);

private:
    httplib::Server m_server;
    int m_port = 0;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    std::map<std::string, std::deque<std::string>> m_replies;
    std::vector<Call> m_calls;
};
