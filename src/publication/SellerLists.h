#pragma once

/// Lets the ERP's lists of the seller's own products make this layer's lines: an
/// AssociatedProduct for each line of the associated list (productType 1). The program calls it
/// when it starts, before any list is read; calling it again changes nothing.
void registerSellerListLines();
