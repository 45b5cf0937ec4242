#pragma once

#include "shell/frame/WizardPage.h"
#include "stores/Seller.h"

class KeyedListView;
class QPushButton;

/// The first page of the ministore wizard: every deposit with its ministore, then the ministores
/// no deposit holds, and the two doors to link or unlink the selected row.
class ShowMinistores : public WizardPage
{
    Q_OBJECT
public:
    ShowMinistores(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Rebuilds the list from the seller's lists and selects the row the wizard's operation
    /// started from. With no ministores or no deposits it says so and leaves the wizard.
    void Start() override;

private:
    void addDepositRow(const VirtualDeposit &deposit);
    void addFreeMinistoreRow(const ZorvantaMinistore &ministore);
    void selectOperationRow();
    void enableButtons();
    bool mayAssociate() const;
    void DoAssociation();
    void DoDeassociation();

    KeyedListView *m_list;
    QPushButton *m_associate;
    QPushButton *m_deassociate;
    Ministores m_freeMinistores;
    VirtualDeposits m_freeDeposits;
};
