#pragma once

#include "gateways/DovelAPI.h"
#include "shell/Collection.h"

#include <cstdint>
#include <memory>
#include <string>

class ProductLine;
class XmlNodeList;
class ZorvantaMinistore;

/// What the two ERP browsers share when they ask the ERP for a page of products.

/// 0 walking forwards, 1 backwards.
std::int32_t erpDirection(bool forward);

/// A buffer the ERP may write into, holding `text`.
ConnectorBuffer connectorText(const std::string &text);

/// The id of the store a list is narrowed to; empty for all stores.
std::string storeIdOf(const std::shared_ptr<ZorvantaMinistore> &ministore);

/// Whether the ERP's code says that the page just read was the last one in that direction:
/// 103 (the whole list), 102 forwards, 101 backwards.
bool endsList(std::int32_t code, std::int32_t direction);

/// Adds to `lines`, in order, the line that the factory of `productType` makes of each node.
void addLines(Collection<std::shared_ptr<ProductLine>> &lines, const XmlNodeList &nodes,
              std::int16_t productType, const std::shared_ptr<ZorvantaMinistore> &ministore);
