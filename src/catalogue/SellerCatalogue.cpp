#include "catalogue/SellerCatalogue.h"

#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"

std::shared_ptr<DovelCategory> sellerRootCategory()
{
    return std::make_shared<DovelCategory>();
}

std::shared_ptr<ProductBrowser> sellerBrowser()
{
    return std::make_shared<ProductBrowser>();
}
