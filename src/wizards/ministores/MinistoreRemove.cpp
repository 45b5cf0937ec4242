#include "wizards/ministores/MinistoreRemove.h"

#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "stores/VirtualDeposit.h"

void MinistoreRemove::Perform()
{
    withDirectReport(
        [&] {
            if (!m_deposit)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            m_deposit->RemoveAssociation();
        },
        [] {});
}
