#include "wizards/ministores/MinistoreAddition.h"

#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "stores/VirtualDeposit.h"

void MinistoreAddition::Perform()
{
    withDirectReport(
        [&] {
            if (!m_deposit)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            m_deposit->setMinistore(m_ministore);
            m_deposit->CreateAssociation();
        },
        [] {});
}
