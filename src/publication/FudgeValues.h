#pragma once

#include "catalogue/ZorvantaProduct.h"

#include <memory>

class AssociatedProduct;

/// Which of the marketplace product's own values join the seller's.
enum class MarketplaceValues {
    /// Every value of a property that is not variant: what the marketplace says of the product.
    NotVariant,
    /// Only those of characteristic properties, when the caller adds values of its own for the
    /// other properties.
    CharacteristicNotVariant,
};

/// The values a read-only grid shows for an association, in a new collection keyed by property
/// id: the marketplace product's own values (`kept` says which), then the seller's values of
/// the variant properties, each pointed at the product's own property. The seller's fixed
/// values and the marketplace's variant ones are not shown. A value of a property the product
/// no longer has is error 5; an association whose values could not be read shows the
/// marketplace's alone, the reading having been reported already.
std::shared_ptr<ZorvantaProduct::Values> FudgeValues(AssociatedProduct &association,
                                                     MarketplaceValues kept);
