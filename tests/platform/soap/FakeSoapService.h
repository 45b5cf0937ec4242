#pragma once

#include <httplib.h>
#include <mutex>
#include <string>
#include <thread>

/// A SOAP service on a free loopback port, in a thread of the test: it serves a WSDL at
/// /service.wsdl (with "@ADDRESS@" replaced by its endpoint's address), answers every POST to
/// the endpoint with the reply it was given and keeps the last request it received.
class FakeSoapService
{
public:
    explicit FakeSoapService(std::string wsdl);
    ~FakeSoapService();

    std::string url(const std::string &path = "/service.wsdl") const;
    void answer(int status, std::string body);
    /// The last request received; an empty one when none came.
    httplib::Request lastRequest() const;

private:
    httplib::Server m_server;
    int m_port = 0;
    std::thread m_thread;
    mutable std::mutex m_mutex;
    httplib::Request m_lastRequest;
    int m_status = 200;
    std::string m_reply;
};
