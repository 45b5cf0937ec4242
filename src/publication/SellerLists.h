#pragma once

/// Lets the ERP's lists of the seller's own products make this layer's lines: an
/// AssociatedProduct for each line of the associated list (productType 1), a PublishedProduct
/// for each line of the published (2) and pending (3) lists, which reads its detail by that type
/// in the list's ministore. The program calls it when it starts, before any list is read;
/// calling it again changes nothing.
void registerSellerListLines();
