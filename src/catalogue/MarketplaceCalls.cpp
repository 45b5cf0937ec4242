#include "catalogue/MarketplaceCalls.h"

#include "gateways/CommerceServer.h"
#include "platform/core/RaisedError.h"
#include "platform/soap/SoapClient.h"
#include "platform/xml/XmlDocument.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

std::string callMarketplace(const std::shared_ptr<SoapClient> &client,
                            const std::string &operation,
                            const std::vector<SoapArgument> &arguments)
{
    if (!client)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return client->call(operation, arguments);
}

void loadMarketplaceReply(XmlDocument &document, const std::string &reply, const std::string &api,
                          const std::string &malformedSource, const std::string &errorSource,
                          const std::function<void()> &beforeFailure)
{
    document.setProperty("SelectionLanguage", "XPath");
    if (!document.loadXML(reply)) {
        if (beforeFailure)
            beforeFailure();
        raiseError(-10503, "El XML retornado por " + api + " está mal construido: " + reply,
                   malformedSource);
    }
    if (Commerce_IsError(document)) {
        if (beforeFailure)
            beforeFailure();
        raiseError(Commerce_ErrorNumber(document), Commerce_ErrorDescription(document),
                   errorSource);
    }
}

std::string firstMinistoreId(const std::string &source)
{
    const auto ministores = gSeller->ministores();
    if (!ministores)
        raiseError(-10005, "No existen minitiendas para el cliente ", source);
    return ministores->item(1)->id();
}
