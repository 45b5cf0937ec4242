#pragma once

#include "catalogue/ZorvantaProduct.h"

#include <memory>

class AssociatedProduct;

/// The first values of a new publication of `association`, keyed by property id: the
/// marketplace product's characteristic values that are not variants, the association's
/// variant values, then the fourteen prices and quantities, every price at the ERP product's
/// first price and every quantity at "1", whatever the product held for them. A field the
/// product does not have is left out.
std::shared_ptr<ZorvantaProduct::Values> NewPublicationValues(AssociatedProduct &association);
