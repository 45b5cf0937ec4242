#include "publication/SellerLists.h"

#include "catalogue/ProductLine.h"
#include "publication/AssociatedProduct.h"
#include "publication/PublishedProduct.h"

namespace {

std::shared_ptr<ProductLine> publicationLine(const XmlNode &node, std::int16_t productType,
                                             const std::shared_ptr<ZorvantaMinistore> &ministore)
{
    auto line = std::make_shared<PublishedProduct>();
    line->setXml(node);
    // The list's type says which detail the line reads later, and in which store.
    line->setPublicationType(productType);
    line->setMinistore(ministore);
    return line;
}

} // namespace

void registerSellerListLines()
{
    ProductLine::registerFactory(
        1, [](const XmlNode &node, std::int16_t, const std::shared_ptr<ZorvantaMinistore> &) {
            auto line = std::make_shared<AssociatedProduct>();
            line->setXml(node);
            return std::shared_ptr<ProductLine>(line);
        });
    ProductLine::registerFactory(2, publicationLine);
    ProductLine::registerFactory(3, publicationLine);
}
