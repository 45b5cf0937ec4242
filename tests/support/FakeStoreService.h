#pragma once

#include <atomic>
#include <httplib.h>
#include <mutex>
#include <string>
#include <thread>

/// The store port of the marketplace's catalogue service in a thread of the test, on a free
/// loopback port: it describes GetSellerInformation in its WSDL and answers every call with the
/// document it was given, counting the calls.
class FakeStoreService
{
public:
    FakeStoreService();
    ~FakeStoreService();
    FakeStoreService(const FakeStoreService &) = delete;
    FakeStoreService &operator=(const FakeStoreService &) = delete;

    /// Points gStoreClient at this service, as CommerceServerInit points it at the real one.
    void bindStoreClient() const;
    /// The XML document the next calls return.
    void answer(std::string document);
    int calls() const { return m_calls; }
    /// The seller id of the last call.
    std::string lastSellerId() const;

private:
    httplib::Server m_server;
    int m_port = 0;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    std::string m_document;
    std::string m_lastSellerId;
    std::atomic<int> m_calls = 0;
};
