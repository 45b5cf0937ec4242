#include "wizards/publications/PublicationModification.h"

#include "platform/core/RaisedError.h"
#include "publication/PublishedProduct.h"
#include "shell/ErrorHandling.h"
#include "wizards/publications/TypedValues.h"

void PublicationModification::Perform()
{
    withDirectReport(
        [&] {
            if (m_product == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            m_product->setNonCharateristicAttributes(TypedValues(m_values));
            m_product->UpdatePublication();
        },
        [] {});
}
