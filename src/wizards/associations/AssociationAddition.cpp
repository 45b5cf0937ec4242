#include "wizards/associations/AssociationAddition.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "publication/AssociatedProduct.h"
#include "shell/ErrorHandling.h"

void AssociationAddition::Perform()
{
    withDirectReport(
        [&] {
            if (m_values == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            // Only the seller's choices are stored; the marketplace keeps its own values.
            for (int index = m_values->count(); index >= 1; --index) {
                if (!m_values->item(index)->definition()->isVariant())
                    m_values->remove(index);
            }
            auto association = std::make_shared<AssociatedProduct>();
            association->setSellerProd(m_product);
            association->setZorvantaProd(m_definition);
            association->setVariantattributes(m_values);
            association->CreateAssociation();
        },
        [] {});
}
