#pragma once

#include "catalogue/ZorvantaProduct.h"

#include <memory>

/// The values of `values` that the seller types for a publication, keyed by property id: those
/// of properties neither characteristic nor variant. A null collection gives an empty one.
std::shared_ptr<ZorvantaProduct::Values>
TypedValues(const std::shared_ptr<ZorvantaProduct::Values> &values);
