#include "editors/AssociatedProductColumns.h"

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "publication/AssociatedProduct.h"

QStringList AssociatedProductColumns::headings()
{
    return {QString::fromUtf8("Código"), QString::fromUtf8("Descripción"), "Referencia",
            QString::fromUtf8("Código Zorvanta")};
}

std::string AssociatedProductColumns::keyOf(AssociatedProduct &association)
{
    return association.associationId();
}

std::string AssociatedProductColumns::lineOf(AssociatedProduct &association)
{
    const auto product = association.theSellerProduct();
    const auto &marketplace = association.theZorvantaProduct();
    return product->dovelID() + "\t" + product->Description() + "\t" + product->Reference() + "\t" +
           (marketplace ? marketplace->id() : std::string());
}
