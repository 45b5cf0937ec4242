#pragma once

#include "wizards/ministores/MinistoreConfirmationPage.h"

/// Confirms a new link between a deposit and a ministore.
class ConfirmMinistoreAddition : public MinistoreConfirmationPage
{
    Q_OBJECT
public:
    ConfirmMinistoreAddition(PageHost &parent, const QString &controlName, QWidget *widgetParent);

protected:
    std::shared_ptr<VirtualDeposit> deposit() override;
    std::shared_ptr<ZorvantaMinistore> ministore() override;
    /// Back to the page that chose the second half.
    std::string previousPage() override;
};
