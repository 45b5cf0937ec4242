#include "gateways/CommerceServer.h"

#include "gateways/ReplyConvention.h"
#include "platform/soap/MarketplaceUrl.h"
#include "platform/soap/SoapClient.h"
#include "shell/ErrorHandling.h"

std::shared_ptr<SoapClient> gStoreClient;
std::shared_ptr<SoapClient> gCatalogOperationsClient;
std::shared_ptr<SoapClient> gCatalogInfoClient;

namespace {

const ReplyConvention &commerceReplies()
{
    static const ReplyConvention convention({"CommerceServer::Commerce_IsResult",
                                             "CommerceServer::Commerce_ErrorNumber",
                                             "CommerceServer::Commerce_ErrorDescription",
                                             "CommerceServer::Commerce_IsError"});
    return convention;
}

} // namespace

bool CommerceServerInit()
{
    return withHandler("CommerceServer::CommerceServerInit", [] {
        gStoreClient = std::make_shared<SoapClient>();
        gCatalogOperationsClient = std::make_shared<SoapClient>();
        gCatalogInfoClient = std::make_shared<SoapClient>();
        const std::string wsdl = marketplaceUrl() + kServiceWsdlPath;
        gStoreClient->init(wsdl, "zvtsorvek", "StoreSoapPort", "");
        gCatalogOperationsClient->init(wsdl, "zvtsorvek", "CatalogOperationsSoapPort", "");
        gCatalogInfoClient->init(wsdl, "zvtsorvek", "CatalogInfoSoapPort", "");
        return true;
    });
}

bool Commerce_IsResult(XmlDocument &document)
{
    return commerceReplies().isResult(document);
}

bool Commerce_IsError(XmlDocument &document)
{
    return commerceReplies().isError(document);
}

std::int32_t Commerce_ErrorNumber(XmlDocument &document)
{
    return commerceReplies().errorNumber(document);
}

std::string Commerce_ErrorDescription(XmlDocument &document)
{
    return commerceReplies().errorDescription(document);
}
