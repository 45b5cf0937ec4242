#pragma once

#include <memory>

class PageHost;
class ProductRequest;
class ZorvantaCategory;

/// How the request wizard's pages reach the parts of the request under construction, whichever
/// of the two kinds it is. Each raises ObjectNotSet (91) when the wizard holds no operation and
/// TypeMismatch (13) when it holds one of another kind.

/// True for a CategoryRequest, false for a ProductRequest.
bool isCategoryRequest(const PageHost &wizard);
/// The product asked for: the request itself, or the first product of a new category.
ProductRequest &requestedProduct(const PageHost &wizard);
/// The category the request goes under: a new category's parent, or the product's category.
std::shared_ptr<ZorvantaCategory> requestCategory(const PageHost &wizard);
void setRequestCategory(const PageHost &wizard, std::shared_ptr<ZorvantaCategory> category);
