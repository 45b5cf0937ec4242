#pragma once

#include "wizards/ministores/MinistoreConfirmationPage.h"

/// Confirms the removal of a deposit's link with its ministore.
class ConfirmMinistoreRemoval : public MinistoreConfirmationPage
{
    Q_OBJECT
public:
    ConfirmMinistoreRemoval(PageHost &parent, const QString &controlName, QWidget *widgetParent);

protected:
    std::shared_ptr<VirtualDeposit> deposit() override;
    /// The deposit's own ministore.
    std::shared_ptr<ZorvantaMinistore> ministore() override;
    /// Back to the list, keeping the operation so that it selects the deposit's row.
    std::string previousPage() override { return "Show"; }
};
