#include "platform/soap/HttpTransport.h"

#include "platform/core/RaisedError.h"

#include <charconv>
#include <cstdlib>
#include <curl/curl.h>
#include <memory>
#include <string_view>

namespace {

// What one request has received so far, seen by curl's callbacks.
struct Transfer
{
    std::string *body = nullptr;
    std::chrono::seconds silenceLimit{};
    std::chrono::steady_clock::time_point lastProgress = std::chrono::steady_clock::now();
    curl_off_t sent = 0;
    bool silent = false;
    bool tooLarge = false;

    void progressed() { lastProgress = std::chrono::steady_clock::now(); }
};

// A dead or unreachable host must not freeze the window: any working network connects in
// well under 5 s. A service that accepted the request may take long over a big batch, so there
// is no limit on the whole exchange, only on a stretch without a single byte.
constexpr long kConnectTimeoutMs = 5000;

std::chrono::seconds configuredSilenceLimit()
{
    const char *text = std::getenv("ASISTENTE_MARKETPLACE_TIMEOUT");
    if (text == nullptr)
        return HttpTransport::kDefaultSilenceLimit;
    const std::string_view value(text);
    long long seconds = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), seconds);
    if (error != std::errc() || end != value.data() + value.size() || seconds <= 0)
        return HttpTransport::kDefaultSilenceLimit;
    return std::chrono::seconds(seconds);
}

size_t receiveBody(char *data, size_t size, size_t count, void *target)
{
    auto &transfer = *static_cast<Transfer *>(target);
    if (transfer.body->size() + size * count > HttpTransport::kMaxReplyBytes) {
        transfer.tooLarge = true;
        return 0; // curl ends the request with a write error
    }
    transfer.body->append(data, size * count);
    transfer.progressed();
    return size * count;
}

// A header dripping in is progress as well as a body.
size_t receiveHeader(char *, size_t size, size_t count, void *target)
{
    static_cast<Transfer *>(target)->progressed();
    return size * count;
}

// curl calls this about once a second while a request is open, whether bytes move or not.
int watchSilence(void *target, curl_off_t, curl_off_t, curl_off_t, curl_off_t sentNow)
{
    auto &transfer = *static_cast<Transfer *>(target);
    if (sentNow != transfer.sent) {
        transfer.sent = sentNow;
        transfer.progressed();
    }
    if (std::chrono::steady_clock::now() - transfer.lastProgress < transfer.silenceLimit)
        return 0;
    transfer.silent = true;
    return 1; // curl ends the request as aborted
}

void startCurlOnce()
{
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK) {
        raiseError(RuntimeErrorNumber::AutomationError,
                   std::string("No se pudo iniciar el transporte HTTP: ") +
                       curl_easy_strerror(started));
    }
}

} // namespace

HttpTransport::HttpTransport()
    : m_errorText(CURL_ERROR_SIZE, '\0'), m_silenceLimit(configuredSilenceLimit())
{
    startCurlOnce();
    m_curl = curl_easy_init();
    if (m_curl == nullptr)
        raiseError(RuntimeErrorNumber::AutomationError, "No se pudo iniciar el transporte HTTP");
    curl_easy_setopt(m_curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(m_curl, CURLOPT_CONNECTTIMEOUT_MS, kConnectTimeoutMs);
    curl_easy_setopt(m_curl, CURLOPT_ERRORBUFFER, m_errorText.data());
    curl_easy_setopt(m_curl, CURLOPT_WRITEFUNCTION, receiveBody);
    curl_easy_setopt(m_curl, CURLOPT_HEADERFUNCTION, receiveHeader);
    curl_easy_setopt(m_curl, CURLOPT_XFERINFOFUNCTION, watchSilence);
    curl_easy_setopt(m_curl, CURLOPT_NOPROGRESS, 0L);
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
    Transfer transfer;
    transfer.body = &reply.body;
    transfer.silenceLimit = m_silenceLimit;
    m_errorText.front() = '\0';
    curl_easy_setopt(m_curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(m_curl, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(m_curl, CURLOPT_HEADERDATA, &transfer);
    curl_easy_setopt(m_curl, CURLOPT_XFERINFODATA, &transfer);
    const CURLcode result = curl_easy_perform(m_curl);
    if (result != CURLE_OK) {
        std::string transportText = curl_easy_strerror(result);
        if (m_errorText.front() != '\0')
            transportText += std::string(" (") + m_errorText.data() + ")";
        std::string what = "falló: ";
        if (transfer.silent) {
            what = "quedó sin respuesta: el servidor no envió nada en " +
                   std::to_string(m_silenceLimit.count()) + " s: ";
        } else if (transfer.tooLarge) {
            what = "fue abandonada: la respuesta supera el máximo de " +
                   std::to_string(kMaxReplyBytes) + " bytes: ";
        }
        raiseError(RuntimeErrorNumber::AutomationError,
                   "La solicitud HTTP a " + url + " " + what + transportText);
    }
    curl_easy_getinfo(m_curl, CURLINFO_RESPONSE_CODE, &reply.status);
    return reply;
}
