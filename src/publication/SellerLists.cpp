#include "publication/SellerLists.h"

#include "catalogue/ProductLine.h"
#include "publication/AssociatedProduct.h"

void registerSellerListLines()
{
    ProductLine::registerFactory(
        1, [](const XmlNode &node, std::int16_t, const std::shared_ptr<ZorvantaMinistore> &) {
            auto line = std::make_shared<AssociatedProduct>();
            line->setXml(node);
            return std::shared_ptr<ProductLine>(line);
        });
}
