#pragma once

#include "catalogue/ZorvantaProduct.h"

#include <memory>

class PublishedProduct;

/// The values a read-only grid shows for a publication, keyed by property id, from its three
/// sources: the marketplace product's characteristic values that are not variants, the
/// association's variant values and the publication's own typed values, each pointed at the
/// product's property. A value of a property the product no longer has is error 5.
std::shared_ptr<ZorvantaProduct::Values> PublicationValues(PublishedProduct &publication);
