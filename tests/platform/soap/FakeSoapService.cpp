#include "FakeSoapService.h"

FakeSoapService::FakeSoapService(std::string wsdl)
{
    // Else the reply's body waits for the client's delayed ACK of its headers: 40 ms a call.
    m_server.set_tcp_nodelay(true);
    m_port = m_server.bind_to_any_port("127.0.0.1");
    if (const auto at = wsdl.find("@ADDRESS@"); at != std::string::npos)
        wsdl.replace(at, 9, url("/soap"));
    m_server.Get("/service.wsdl", [wsdl](const httplib::Request &, httplib::Response &res) {
        res.set_content(wsdl, "text/xml");
    });
    m_server.Post("/soap", [this](const httplib::Request &req, httplib::Response &res) {
        const std::lock_guard lock(m_mutex);
        m_lastRequest = req;
        res.status = m_status;
        res.set_content(m_reply, "text/xml; charset=utf-8");
    });
    m_thread = std::thread([this] { m_server.listen_after_bind(); });
    // stop() only reaches a server that is already accepting.
    while (!m_server.is_running())
        std::this_thread::yield();
}

FakeSoapService::~FakeSoapService()
{
    m_server.stop();
    m_thread.join();
}

std::string FakeSoapService::url(const std::string &path) const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + path;
}

void FakeSoapService::answer(int status, std::string body)
{
    const std::lock_guard lock(m_mutex);
    m_status = status;
    m_reply = std::move(body);
}

httplib::Request FakeSoapService::lastRequest() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastRequest;
}
