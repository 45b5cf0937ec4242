#pragma once

#include "platform/soap/SoapArgument.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class SoapClient;
class XmlDocument;

/// What the catalogue's classes share when they talk to the marketplace's service.

/// Calls `operation` on one of the shared clients and gives back the reply's text. Raises
/// ObjectNotSet (91) when the client was never made.
std::string callMarketplace(const std::shared_ptr<SoapClient> &client,
                            const std::string &operation,
                            const std::vector<SoapArgument> &arguments);

/// Loads `reply` into `document` as every reader of the service does. `api` names the call in
/// the messages ("CommerceServerCatalogInfoAPI.GetCategoryContent"). A text that does not parse
/// raises -10503 "El XML retornado por <api> está mal construido: <reply>" under
/// `malformedSource`; a RESULT of an error raises the reply's own number and description under
/// `errorSource`. `beforeFailure` runs just before either raise.
void loadMarketplaceReply(XmlDocument &document, const std::string &reply, const std::string &api,
                          const std::string &malformedSource, const std::string &errorSource,
                          const std::function<void()> &beforeFailure = {});

/// The id of the seller's first ministore: the marketplace answers in the context of a store,
/// and any of the seller's will do. Raises -10005 under `source` when the seller's ministores
/// could not be read, and SubscriptOutOfRange (9) when the seller has none.
std::string firstMinistoreId(const std::string &source);
