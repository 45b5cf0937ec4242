#pragma once

#include <string>
#include <vector>

/// What came back from an HTTP request: the status and the body.
struct HttpReply
{
    long status = 0;
    std::string body;
};

/// HTTP over one curl handle, so that consecutive requests to the same host reuse the
/// connection. Never retries; gives up on a host that does not accept the connection within a
/// few seconds, or on a server that stops sending for a while.
class HttpTransport
{
public:
    /// Raises AutomationError when curl can't be started.
    HttpTransport();
    ~HttpTransport();
    HttpTransport(const HttpTransport &) = delete;
    HttpTransport &operator=(const HttpTransport &) = delete;

    /// GETs `url`. Whatever status comes back is given back; raises AutomationError with curl's
    /// message when no HTTP answer comes at all (refused, unknown host, time-out, cut reply).
    HttpReply get(const std::string &url);

    /// POSTs `body` to `url` with the extra header lines `headers` ("Name: value"); fails as
    /// get does.
    HttpReply post(const std::string &url, const std::string &body,
                   const std::vector<std::string> &headers);

private:
    HttpReply perform(const std::string &url);

    void *m_curl = nullptr;
    std::vector<char> m_errorText;
};
