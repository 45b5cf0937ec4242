#include "CannedMarketplace.h"

#include "marketplace/ServiceContract.h"
#include "marketplace/SoapMessage.h"
#include "marketplace/WsdlDocument.h"

CannedMarketplace::CannedMarketplace()
{
    // Else each reply's body waits for the client's delayed ACK of its headers.
    m_server.set_tcp_nodelay(true);
    m_port = m_server.bind_to_any_port("127.0.0.1");
    m_server.Get(std::string(ServiceContract::kWsdlPath),
                 [this](const httplib::Request &, httplib::Response &response) {
                     response.set_content(WsdlDocument::text(url()), "text/xml");
                 });
    for (std::string_view port : ServiceContract::ports()) {
        m_server.Post(ServiceContract::portPath(port), [this](const httplib::Request &request,
                                                              httplib::Response &response) {
            const SoapMessage message =
                SoapMessage::parse(request.body, request.get_header_value("SOAPAction"));
            Call call{message.operation(), {}};
            if (const OperationContract *contract = ServiceContract::find(call.operation)) {
                for (std::size_t i = 0; i < contract->parts.size(); ++i)
                    call.arguments.push_back(
                        message.argument(contract->parts[i].name, i).value_or(""));
            }
            const std::lock_guard lock(m_mutex);
            std::deque<std::string> &queued = m_replies[call.operation];
            std::string document = reply(call.operation);
            if (!queued.empty()) {
                document = std::move(queued.front());
                queued.pop_front();
            }
            m_calls.push_back(std::move(call));
            response.set_content(SoapMessage::response(message.operation(), document),
                                 "text/xml; charset=utf-8");
        });
    }
    m_thread = std::thread([this] { m_server.listen_after_bind(); });
    // stop() only reaches a server that is already accepting.
    while (!m_server.is_running())
        std::this_thread::yield();
}

CannedMarketplace::~CannedMarketplace()
{
    m_server.stop();
    m_thread.join();
}

std::string CannedMarketplace::url() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

void CannedMarketplace::queue(const std::string &operation, std::string reply)
{
    const std::lock_guard lock(m_mutex);
    m_replies[operation].push_back(std::move(reply));
}

std::vector<CannedMarketplace::Call> CannedMarketplace::callsOf(const std::string &operation) const
{
    const std::lock_guard lock(m_mutex);
    std::vector<Call> calls;
    for (const Call &call : m_calls) {
        if (call.operation == operation)
            calls.push_back(call);
    }
    return calls;
}

std::string CannedMarketplace::reply(const std::string &operation, const std::string &content)
{
    return "<" + operation +
           "><RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Exito"
           "</DESCRIPTION></RESULT>" +
           content + "</" + operation + ">";
}

std::string CannedMarketplace::error(const std::string &operation, int code,
                                     const std::string &description)
{
    return "<" + operation + "><RESULT><RETURNCODE>" + std::to_string(code) +
           "</RETURNCODE><DESCRIPTION>" + description + "</DESCRIPTION></RESULT></" + operation +
           ">";
}
