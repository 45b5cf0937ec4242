#pragma once

#include "shell/frame/WizardPage.h"

#include <memory>
#include <string>

class NavigationButtons;
class QLabel;
class VirtualDeposit;
class ZorvantaMinistore;

/// A page that shows the deposit and the ministore about to be linked or unlinked, asks for the
/// ministore's credentials (three tries) and performs the wizard's operation.
class MinistoreConfirmationPage : public WizardPage
{
    Q_OBJECT
public:
    /// Fills the six labels from the wizard's operation.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

protected:
    MinistoreConfirmationPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                              const char *title);

    /// The deposit and the ministore of the wizard's operation.
    virtual std::shared_ptr<VirtualDeposit> deposit() = 0;
    virtual std::shared_ptr<ZorvantaMinistore> ministore() = 0;
    /// Where Anterior leads.
    virtual std::string previousPage() = 0;

private:
    void performWithCredentials();
    NavigationButtons *m_buttons;
    QLabel *m_values[6];
};
