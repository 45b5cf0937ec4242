#pragma once

#include <memory>

class DovelCategory;
class ProductBrowser;

/// The seller's ERP catalogue, as gSeller offers it. The seller lives in a layer below the
/// catalogue, so these stand for its two catalogue members.

/// The seller's `RootCategory`: a new, empty category object at each call, for the root of the
/// ERP's category tree.
std::shared_ptr<DovelCategory> sellerRootCategory();

/// The seller's `browser`: a new product search at each call.
std::shared_ptr<ProductBrowser> sellerBrowser();
