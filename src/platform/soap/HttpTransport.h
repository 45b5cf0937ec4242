#pragma once

#include <chrono>
#include <cstddef>
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
/// few seconds, on a server that sends nothing for a while (ASISTENTE_MARKETPLACE_TIMEOUT
/// seconds, 60 by default) and on a reply larger than kMaxReplyBytes.
class HttpTransport
{
public:
    /// Far above any reply of the service (a full page of products is well under 1 MB), so
    /// only a runaway server reaches it.
    static constexpr std::size_t kMaxReplyBytes = 32u << 20;
    static constexpr std::chrono::seconds kDefaultSilenceLimit{60};

    /// Raises AutomationError when curl can't be started. Reads the silence limit from
    /// ASISTENTE_MARKETPLACE_TIMEOUT (whole seconds above 0; anything else keeps the default).
    HttpTransport();
    ~HttpTransport();
    HttpTransport(const HttpTransport &) = delete;
    HttpTransport &operator=(const HttpTransport &) = delete;

    /// GETs `url`. Whatever status comes back is given back; raises AutomationError, with a
    /// Spanish description carrying curl's message, when no whole HTTP answer comes (refused,
    /// unknown host, silence beyond the limit, cut reply, reply beyond kMaxReplyBytes).
    HttpReply get(const std::string &url);

    /// POSTs `body` to `url` with the extra header lines `headers` ("Name: value"); fails as
    /// get does.
    HttpReply post(const std::string &url, const std::string &body,
                   const std::vector<std::string> &headers);

    /// How long the transport waits without a byte moving either way.
    std::chrono::seconds silenceLimit() const { return m_silenceLimit; }

private:
    HttpReply perform(const std::string &url);

    void *m_curl = nullptr;
    std::vector<char> m_errorText;
    std::chrono::seconds m_silenceLimit;
};
