#pragma once

#include <cstdint>
#include <string>

/// One exchange at a time with the marketplace's back-office endpoint over HTTP. Every failure
/// of the transport comes back as the connector code a socket library would give for it.
class BackOfficeConnection
{
public:
    /// ASISTENTE_MARKETPLACE_URL when set and not empty, else http://127.0.0.1:8642.
    static std::string marketplaceUrl();

    explicit BackOfficeConnection(std::string baseUrl);

    /// Opens a session; sessionId is written only when the result is 0.
    std::int32_t openSession(const std::string &clientKey1, const std::string &clientKey2,
                             std::int32_t clientNumber, std::int32_t &sessionId);
    std::int32_t closeSession(std::int32_t sessionId);
    /// Runs one operation; reply holds the whole reply text when the result is 0.
    std::int32_t execute(std::int32_t operationId, std::int32_t sessionId,
                         const std::string &request, std::string &reply);

private:
    struct Exchange
    {
        std::int32_t code = 0;
        std::string body;
        std::string operation;
    };

    /// POSTs body to path?query and reads the code header; the transport's failure otherwise.
    std::int32_t post(const std::string &pathAndQuery, const std::string &body,
                      Exchange &exchange) const;

    std::string m_baseUrl;
};
