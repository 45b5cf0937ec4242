#include "platform/soap/HttpTransport.h"

#include "platform/core/RaisedError.h"

#include <curl/curl.h>
#include <memory>

namespace {

// A dead or unreachable host must not freeze the window: any working network connects in
// well under 5 s. A service that accepted the request may take long over a big batch, so there
// is no limit on the whole exchange; only 20 s without a single byte counts as a dead server.
constexpr long kConnectTimeoutMs = 5000;
constexpr long kSilenceLimitSeconds = 20;

size_t appendToString(char *data, size_t size, size_t count, void *target)
{
    static_cast<std::string *>(target)->append(data, size * count);
    return size * count;
}

void startCurlOnce()
{
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   std::string("Cannot start the HTTP transport: ") + curl_easy_strerror(started));
    }
}

} // namespace

HttpTransport::HttpTransport() : m_errorText(CURL_ERROR_SIZE, '\0')
{
    startCurlOnce();
    m_curl = curl_easy_init();
    if (m_curl == nullptr)
        raiseError(RuntimeErrorNumber::AutomationError, "Cannot start the HTTP transport");
    curl_easy_setopt(m_curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(m_curl, CURLOPT_CONNECTTIMEOUT_MS, kConnectTimeoutMs);
    curl_easy_setopt(m_curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(m_curl, CURLOPT_LOW_SPEED_TIME, kSilenceLimitSeconds);
    curl_easy_setopt(m_curl, CURLOPT_ERRORBUFFER, m_errorText.data());
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, appendToString);
}

HttpTransport::~HttpTransport()
{
    curl_easy_cleanup(m_curl);
}

HttpReply HttpTransport::get(const std::string &url)
{
    curl_easy_setopt(m_curl, CURLOPT_HTTPGET, 1L);
    curl_easy_setopt(m_curl, CURLOPT_HTTPHEADER, nullptr);
    return perform(url);
}

HttpReply HttpTransport::post(const std::string &url, const std::string &body,
                              const std::vector<std::string> &headers)
{
    // Every request sets its own header list, so the handle never uses a freed one.
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headerList(nullptr,
                                                                           curl_slist_free_all);
    for (const auto &header : headers) {
        // On failure curl keeps the list as it was, so it stays ours to free.
        if (curl_slist *grown = curl_slist_append(headerList.get(), header.c_str())) {
            static_cast<void>(headerList.release());
            headerList.reset(grown);
        }
    }
    curl_easy_setopt(m_curl, CURLOPT_POST, 1L);
    curl_easy_setopt(m_curl, CURLOPT_POSTFIELDS, body.data());
    curl_easy_setopt(m_curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    curl_easy_setopt(m_curl, CURLOPT_HTTPHEADER, headerList.get());
    return perform(url);
}

HttpReply HttpTransport::perform(const std::string &url)
{
    HttpReply reply;
    m_errorText.front() = '\0';
    curl_easy_setopt(m_curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, &reply.body);
    const CURLcode result = curl_easy_perform(m_curl);
    if (result != CURLE_OK) {
        std::string text = curl_easy_strerror(result);
        if (m_errorText.front() != '\0')
            text += std::string(" (") + m_errorText.data() + ")";
        raiseError(RuntimeErrorNumber::AutomationError,
                   "HTTP request to " + url + " failed: " + text);
    }
    curl_easy_getinfo(m_curl, CURLINFO_RESPONSE_CODE, &reply.status);
    return reply;
}
