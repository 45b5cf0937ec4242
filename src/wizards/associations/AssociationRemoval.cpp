#include "wizards/associations/AssociationRemoval.h"

#include "platform/core/RaisedError.h"
#include "publication/AssociatedProduct.h"
#include "shell/ErrorHandling.h"

void AssociationRemoval::Perform()
{
    withDirectReport(
        [&] {
            if (m_product == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            m_product->RemoveAssociation();
        },
        [] {});
}
