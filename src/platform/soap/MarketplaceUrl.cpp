#include "platform/soap/MarketplaceUrl.h"

#include <cstdlib>

std::string marketplaceUrl()
{
    const char *configured = std::getenv("ASISTENTE_MARKETPLACE_URL");
    std::string url =
        configured != nullptr && *configured != '\0' ? configured : "http://127.0.0.1:8642";
    while (!url.empty() && url.back() == '/')
        url.pop_back();
    return url;
}
