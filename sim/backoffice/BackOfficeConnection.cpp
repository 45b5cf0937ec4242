#include "backoffice/BackOfficeConnection.h"

#include "backoffice/BackOfficeProtocol.h"

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <curl/curl.h>
#include <memory>
#include <mutex>
#include <strings.h>

namespace {

constexpr const char *kDefaultUrl = "http://127.0.0.1:8642";
constexpr long kConnectTimeoutSeconds = 10;
// A slow back office is allowed for, a hung one is not: the caller's thread is blocked meanwhile.
constexpr long kDefaultTimeoutSeconds = 120;

struct CurlDeleter
{
    void operator()(CURL *curl) const { curl_easy_cleanup(curl); }
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};

long timeoutSeconds()
{
    const char *text = std::getenv("ASISTENTE_BACKOFFICE_TIMEOUT");
    long seconds = 0;
    if (text != nullptr) {
        std::from_chars(text, text + std::char_traits<char>::length(text), seconds);
    }
    return seconds > 0 ? seconds : kDefaultTimeoutSeconds;
}

bool parseInt(const std::string &text, std::int32_t &value)
{
    const char *end = text.data() + text.size();
    auto [ptr, ec] = std::from_chars(text.data(), end, value);
    return ec == std::errc() && ptr == end && !text.empty();
}

std::string trim(std::string text)
{
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) {
        return {};
    }
    const auto last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

size_t appendBody(char *data, size_t size, size_t count, void *target)
{
    static_cast<std::string *>(target)->append(data, size * count);
    return size * count;
}

struct ReplyHeaders
{
    std::string code;
    std::string operation;
};

size_t readHeader(char *data, size_t size, size_t count, void *target)
{
    auto *headers = static_cast<ReplyHeaders *>(target);
    const std::string line(data, size * count);
    const auto colon = line.find(':');
    if (colon != std::string::npos) {
        const std::string name = line.substr(0, colon);
        const std::string value = trim(line.substr(colon + 1));
        if (strcasecmp(name.c_str(), BackOfficeProtocol::kCodeHeader) == 0) {
            headers->code = value;
        } else if (strcasecmp(name.c_str(), BackOfficeProtocol::kOperationHeader) == 0) {
            headers->operation = value;
        }
    }
    return size * count;
}

std::int32_t codeOfTransportFailure(CURLcode result)
{
    switch (result) {
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_URL_MALFORMAT:
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return QdxCode::InvalidAddress;
    case CURLE_COULDNT_CONNECT:
        return QdxCode::ConnectFailed;
    case CURLE_SEND_ERROR:
    case CURLE_ABORTED_BY_CALLBACK:
        return QdxCode::SendFailed;
    case CURLE_OUT_OF_MEMORY:
    case CURLE_FAILED_INIT:
        return QdxCode::TcpMessage;
    default:
        return QdxCode::ReceiveFailed;
    }
}

// Query values are percent-encoded byte by byte, whatever their encoding.
std::string escape(const std::string &text)
{
    std::string escaped;
    static constexpr char kHex[] = "0123456789ABCDEF";
    for (unsigned char c : text) {
        if (std::isalnum(c) || c == '-' || c == '_' || c == '.' || c == '~') {
            escaped += static_cast<char>(c);
        } else {
            escaped += '%';
            escaped += kHex[c >> 4];
            escaped += kHex[c & 0xF];
        }
    }
    return escaped;
}

void initialiseCurlOnce()
{
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

} // namespace

std::string BackOfficeConnection::marketplaceUrl()
{
    const char *url = std::getenv("ASISTENTE_MARKETPLACE_URL");
    return url != nullptr && *url != '\0' ? std::string(url) : std::string(kDefaultUrl);
}

BackOfficeConnection::BackOfficeConnection(std::string baseUrl) : m_baseUrl(std::move(baseUrl))
{
    while (!m_baseUrl.empty() && m_baseUrl.back() == '/') {
        m_baseUrl.pop_back();
    }
}

std::int32_t BackOfficeConnection::openSession(const std::string &clientKey1,
                                               const std::string &clientKey2,
                                               std::int32_t clientNumber, std::int32_t &sessionId)
{
    Exchange exchange;
    const std::string query = std::string(BackOfficeProtocol::kOpenPath) +
                              "?clave1=" + escape(clientKey1) + "&clave2=" + escape(clientKey2) +
                              "&cliente=" + std::to_string(clientNumber);
    std::int32_t code = post(query, {}, exchange);
    if (code != QdxCode::Success) {
        return code;
    }
    std::int32_t id = 0;
    if (!parseInt(trim(exchange.body), id)) {
        return QdxCode::ReceiveFailed;
    }
    sessionId = id;
    return QdxCode::Success;
}

std::int32_t BackOfficeConnection::closeSession(std::int32_t sessionId)
{
    Exchange exchange;
    return post(std::string(BackOfficeProtocol::kClosePath) +
                    "?sesion=" + std::to_string(sessionId),
                {}, exchange);
}

std::int32_t BackOfficeConnection::execute(std::int32_t operationId, std::int32_t sessionId,
                                           const std::string &request, std::string &reply)
{
    Exchange exchange;
    const std::string query = std::string(BackOfficeProtocol::kExecutePath) +
                              "?operacion=" + std::to_string(operationId) +
                              "&sesion=" + std::to_string(sessionId);
    std::int32_t code = post(query, request, exchange);
    if (code != QdxCode::Success) {
        return code;
    }
    if (exchange.operation != std::to_string(operationId)) {
        return QdxCode::OperationMismatch;
    }
    reply = std::move(exchange.body);
    return QdxCode::Success;
}

std::int32_t BackOfficeConnection::post(const std::string &pathAndQuery, const std::string &body,
                                        Exchange &exchange) const
{
    initialiseCurlOnce();
    std::unique_ptr<CURL, CurlDeleter> curl(curl_easy_init());
    if (!curl) {
        return QdxCode::TcpMessage;
    }
    const std::string url = m_baseUrl + pathAndQuery;
    // No "Expect: 100-continue": it would cost a round trip on every larger request.
    curl_slist *headerList = curl_slist_append(nullptr, "Expect:");
    headerList = curl_slist_append(headerList, "Content-Type: text/xml; charset=utf-8");
    std::unique_ptr<curl_slist, CurlDeleter> headers(headerList);
    ReplyHeaders replyHeaders;

    curl_easy_setopt(curl.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_POST, 1L);
    curl_easy_setopt(curl.get(), CURLOPT_POSTFIELDS, body.data());
    curl_easy_setopt(curl.get(), CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(body.size()));
    curl_easy_setopt(curl.get(), CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(curl.get(), CURLOPT_CONNECTTIMEOUT, kConnectTimeoutSeconds);
    curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, timeoutSeconds());
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, appendBody);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &exchange.body);
    curl_easy_setopt(curl.get(), CURLOPT_HEADERFUNCTION, readHeader);
    curl_easy_setopt(curl.get(), CURLOPT_HEADERDATA, &replyHeaders);

    const CURLcode result = curl_easy_perform(curl.get());
    if (result != CURLE_OK) {
        return codeOfTransportFailure(result);
    }
    long status = 0;
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &status);
    if (status != 200 || !parseInt(replyHeaders.code, exchange.code)) {
        return QdxCode::ReceiveFailed;
    }
    exchange.operation = replyHeaders.operation;
    return exchange.code;
}
