#include "FaultProxy.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr const char *kHeadEnd = "\r\n\r\n";
// A program that never gives up on a fault must fail its test, not hang it: the proxy ends a
// silence or a drip after this long, and an endless reply after this many bytes.
constexpr std::chrono::seconds kLongestHold{20};
constexpr std::size_t kEndlessBytes = std::size_t(256) << 20;

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The value of the header `name` in `head`, empty when it is absent.
std::string headerValue(const std::string &head, const std::string &name)
{
    const std::string wanted = "\r\n" + lower(name) + ":";
    const std::string low = lower(head);
    const auto at = low.find(wanted);
    if (at == std::string::npos)
        return {};
    auto start = at + wanted.size();
    const auto end = head.find("\r\n", start);
    while (start < end && head[start] == ' ')
        ++start;
    return head.substr(start, end - start);
}

// `head` without the header lines named in `names` (lower case), ending in one CR LF.
std::string withoutHeaders(const std::string &head, const std::vector<std::string> &names)
{
    std::string kept;
    std::size_t start = 0;
    while (start < head.size()) {
        auto end = head.find("\r\n", start);
        if (end == std::string::npos)
            end = head.size();
        const std::string line = head.substr(start, end - start);
        const std::string name = lower(line.substr(0, line.find(':')));
        if (start == 0 || std::find(names.begin(), names.end(), name) == names.end())
            kept += line + "\r\n";
        start = end + 2;
    }
    return kept;
}

// Sends everything unless the peer goes away or the proxy stops.
bool sendAll(int socket, const std::string &bytes, const std::atomic<bool> &stopping)
{
    std::size_t sent = 0;
    while (sent < bytes.size() && !stopping) {
        const auto n = ::send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (n > 0)
            sent += static_cast<std::size_t>(n);
        else if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)
            return false;
    }
    return sent == bytes.size();
}

// Blocking calls come back every tenth of a second, so a stopping proxy is never stuck.
void setTimeouts(int socket)
{
    timeval tick{0, 100 * 1000};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &tick, sizeof tick);
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &tick, sizeof tick);
}

// Reads until `done` says the bytes make a whole message, the peer closes or the proxy stops.
template <class Done> std::string receive(int socket, const std::atomic<bool> &stopping, Done done)
{
    std::string bytes;
    char buffer[16384];
    while (!stopping && !done(bytes)) {
        const auto n = ::recv(socket, buffer, sizeof buffer, 0);
        if (n > 0)
            bytes.append(buffer, static_cast<std::size_t>(n));
        else if (n == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR))
            break;
    }
    return bytes;
}

bool wholeRequest(const std::string &bytes)
{
    const auto headEnd = bytes.find(kHeadEnd);
    if (headEnd == std::string::npos)
        return false;
    const std::string length = headerValue(bytes.substr(0, headEnd + 2), "Content-Length");
    const std::size_t bodySize = length.empty() ? 0 : std::stoul(length);
    return bytes.size() >= headEnd + 4 + bodySize;
}

std::string withLength(const std::string &head, const std::string &body)
{
    return withoutHeaders(head, {"content-length", "transfer-encoding", "connection"}) +
           "Content-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n";
}

std::string soapFaultReply()
{
    const std::string body =
        R"(<?xml version="1.0" encoding="utf-8"?>)"
        R"(<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/"><soap:Body>)"
        "<soap:Fault><faultcode>soap:Server</faultcode>"
        "<faultstring>Servicio detenido por mantenimiento</faultstring></soap:Fault>"
        "</soap:Body></soap:Envelope>";
    return withLength("HTTP/1.1 500 Internal Server Error\r\nContent-Type: text/xml", body) + body;
}

std::string notXmlReply()
{
    const std::string body = "Servicio no disponible: vuelva a intentarlo en unos minutos";
    return withLength("HTTP/1.1 200 OK\r\nContent-Type: text/plain", body) + body;
}

void replaceAll(std::string &text, const std::string &from, const std::string &to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Passes one request to the marketplace on a connection of its own and gives back the
// reply's head (status line and headers, ending in CR LF) and its body.
std::pair<std::string, std::string> forward(std::uint16_t port, const std::string &head,
                                            const std::string &body,
                                            const std::atomic<bool> &stopping)
{
    const int upstream = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    std::string reply;
    if (upstream >= 0 &&
        ::connect(upstream, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0) {
        setTimeouts(upstream);
        sendAll(upstream,
                withoutHeaders(head, {"connection", "keep-alive"}) + "Connection: close\r\n\r\n" +
                    body,
                stopping);
        reply = receive(upstream, stopping, [](const std::string &) { return false; });
    }
    if (upstream >= 0)
        ::close(upstream);
    const auto headEnd = reply.find(kHeadEnd);
    if (headEnd == std::string::npos)
        return {"HTTP/1.1 502 Bad Gateway\r\n", "sin respuesta del mercado"};
    std::string replyHead = reply.substr(0, headEnd + 2);
    if (lower(headerValue(replyHead, "Transfer-Encoding")) == "chunked")
        throw std::runtime_error("the fault proxy does not read chunked replies");
    return {replyHead, reply.substr(headEnd + 4)};
}

const char *faultName(NetworkFault fault)
{
    switch (fault) {
    case NetworkFault::Silent:
        return "silent";
    case NetworkFault::Drip:
        return "drip";
    case NetworkFault::Cut:
        return "cut";
    case NetworkFault::SoapFault:
        return "soap fault";
    case NetworkFault::NotXml:
        return "not xml";
    case NetworkFault::Endless:
        return "endless";
    case NetworkFault::Rename:
        return "rename";
    }
    return "?";
}

} // namespace

FaultProxy::FaultProxy(const std::string &upstream)
{
    const auto colon = upstream.rfind(':');
    m_upstreamPort = static_cast<std::uint16_t>(std::stoi(upstream.substr(colon + 1)));
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (m_listener < 0 || ::bind(m_listener, reinterpret_cast<sockaddr *>(&address), size) != 0 ||
        ::listen(m_listener, 16) != 0 ||
        ::getsockname(m_listener, reinterpret_cast<sockaddr *>(&address), &size) != 0) {
        throw std::runtime_error("the fault proxy cannot listen on loopback");
    }
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { acceptLoop(); });
}

FaultProxy::~FaultProxy()
{
    {
        // Under the lock, so no waiter can miss the news between its check and its wait.
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_stopped.notify_all();
    refuseConnections();
    m_acceptor.join();
    // No new connection can start now: the acceptor is gone.
    for (auto &connection : m_connections)
        connection.join();
}

std::string FaultProxy::url() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

void FaultProxy::add(FaultRule rule)
{
    std::lock_guard lock(m_mutex);
    m_rules.push_back({std::move(rule)});
}

void FaultProxy::refuseConnections()
{
    std::lock_guard lock(m_mutex);
    // Shut down first: a poll still holding the socket would keep it listening a while.
    if (m_listener >= 0) {
        ::shutdown(m_listener, SHUT_RDWR);
        ::close(m_listener);
    }
    m_listener = -1;
}

std::vector<std::string> FaultProxy::unusedRules() const
{
    std::lock_guard lock(m_mutex);
    std::vector<std::string> unused;
    for (const auto &rule : m_rules) {
        if (rule.taken == 0) {
            std::string seen;
            for (const std::string &request : m_requests)
                seen += "\n  " + request;
            unused.push_back(std::string(faultName(rule.rule.fault)) + " for '" + rule.rule.path +
                             "' '" + rule.rule.action + "' #" + std::to_string(rule.rule.ordinal) +
                             "; the requests seen:" + seen);
        }
    }
    return unused;
}

void FaultProxy::acceptLoop()
{
    while (!m_stopping) {
        int listener = -1;
        {
            std::lock_guard lock(m_mutex);
            listener = m_listener;
        }
        if (listener < 0) {
            waitUnlessStopping(std::chrono::milliseconds(50));
            continue;
        }
        pollfd ready{listener, POLLIN, 0};
        if (::poll(&ready, 1, 50) <= 0)
            continue;
        std::lock_guard lock(m_mutex);
        // The listener may have been closed, and its number reused, while we polled.
        if (m_listener != listener)
            continue;
        const int client = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0)
            m_connections.emplace_back([this, client] { serve(client); });
    }
}

bool FaultProxy::waitUnlessStopping(std::chrono::milliseconds pause)
{
    std::unique_lock lock(m_mutex);
    return !m_stopped.wait_for(lock, pause, [this] { return m_stopping.load(); });
}

const FaultRule *FaultProxy::ruleFor(const std::string &target, const std::string &action,
                                     std::string &record)
{
    std::lock_guard lock(m_mutex);
    const FaultRule *chosen = nullptr;
    for (auto &rule : m_rules) {
        if (target.find(rule.rule.path) == std::string::npos ||
            action.find(rule.rule.action) == std::string::npos) {
            continue;
        }
        ++rule.seen;
        if (chosen == nullptr && (rule.rule.ordinal == 0 || rule.rule.ordinal == rule.seen)) {
            ++rule.taken;
            chosen = &rule.rule;
        }
    }
    if (chosen != nullptr)
        record += std::string(" <- ") + faultName(chosen->fault);
    m_requests.push_back(record);
    return chosen;
}

void FaultProxy::serve(int client)
{
    setTimeouts(client);
    const std::string request = receive(client, m_stopping, wholeRequest);
    const auto headEnd = request.find(kHeadEnd);
    if (headEnd == std::string::npos) {
        ::close(client);
        return;
    }
    const std::string head = request.substr(0, headEnd + 2);
    const std::string requestLine = head.substr(0, head.find("\r\n"));
    const auto targetStart = requestLine.find(' ') + 1;
    const std::string target =
        requestLine.substr(targetStart, requestLine.find(' ', targetStart) - targetStart);
    std::string action = headerValue(head, "SOAPAction");
    action.erase(std::remove(action.begin(), action.end(), '"'), action.end());
    std::string record = requestLine.substr(0, targetStart) + target;
    if (const auto slash = action.find_last_of("/#"); slash != std::string::npos)
        record += " " + action.substr(slash + 1);
    else if (!action.empty())
        record += " " + action;
    // The rule is copied: the list may grow while this connection is served.
    const FaultRule *found = ruleFor(target, action, record);
    const std::optional<FaultRule> rule =
        found != nullptr ? std::optional<FaultRule>(*found) : std::nullopt;

    if (rule && rule->fault == NetworkFault::Silent) {
        waitUnlessStopping(kLongestHold);
    } else if (rule && rule->fault == NetworkFault::SoapFault) {
        sendAll(client, soapFaultReply(), m_stopping);
    } else if (rule && rule->fault == NetworkFault::NotXml) {
        sendAll(client, notXmlReply(), m_stopping);
    } else if (rule && rule->fault == NetworkFault::Endless) {
        std::string chunk;
        while (chunk.size() < 65536)
            chunk += "<Relleno>abcdefghijklmnopqrstuvwxyz</Relleno>";
        bool open = sendAll(client,
                            "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n"
                            "Connection: close\r\n\r\n<Relleno>",
                            m_stopping);
        for (std::size_t sent = 0; open && sent < kEndlessBytes; sent += chunk.size())
            open = sendAll(client, chunk, m_stopping);
    } else {
        auto [replyHead, body] =
            forward(m_upstreamPort, head, request.substr(headEnd + 4), m_stopping);
        if (rule && rule->fault == NetworkFault::Rename) {
            for (const auto &[from, to] : rule->renames)
                replaceAll(body, from, to);
        }
        const std::string whole = withLength(replyHead, body);
        if (rule && rule->fault == NetworkFault::Cut) {
            sendAll(client, whole + body.substr(0, body.size() / 2), m_stopping);
        } else if (rule && rule->fault == NetworkFault::Drip) {
            const std::string reply = whole + body;
            const auto deadline = std::chrono::steady_clock::now() + kLongestHold;
            for (std::size_t i = 0; i < reply.size() && std::chrono::steady_clock::now() < deadline;
                 ++i) {
                if (!sendAll(client, reply.substr(i, 1), m_stopping) ||
                    !waitUnlessStopping(rule->dripPause)) {
                    break;
                }
            }
        } else {
            sendAll(client, whole + body, m_stopping);
        }
    }
    ::close(client);
}
