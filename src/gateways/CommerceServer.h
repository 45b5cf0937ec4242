#pragma once

#include <cstdint>
#include <memory>
#include <string>

class SoapClient;
class XmlDocument;

/// The marketplace's catalogue service, one client per port, bound by CommerceServerInit and
/// kept for the whole run. Callers call the operations on them directly and read their own
/// replies.
extern std::shared_ptr<SoapClient> gStoreClient;
extern std::shared_ptr<SoapClient> gCatalogOperationsClient;
extern std::shared_ptr<SoapClient> gCatalogInfoClient;

/// Where the service describes itself, below the marketplace's address.
inline constexpr const char *kServiceWsdlPath = "/zvtservices/zvtsorvek.wsdl";

/// Creates the three clients and binds each to its port, reading the description every time.
/// False, after the failure path has reported the error, when any of them fails.
bool CommerceServerInit();

/// The service's reply convention (see ReplyConvention).
bool Commerce_IsResult(XmlDocument &document);
bool Commerce_IsError(XmlDocument &document);
std::int32_t Commerce_ErrorNumber(XmlDocument &document);
std::string Commerce_ErrorDescription(XmlDocument &document);
