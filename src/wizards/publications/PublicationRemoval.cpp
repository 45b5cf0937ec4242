#include "wizards/publications/PublicationRemoval.h"

#include "platform/core/RaisedError.h"
#include "publication/PublishedProduct.h"
#include "shell/ErrorHandling.h"

void PublicationRemoval::Perform()
{
    withDirectReport(
        [&] {
            if (m_product == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            m_product->RemovePublication();
        },
        [] {});
}
