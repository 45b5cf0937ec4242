#pragma once

#include "shell/frame/WizardPage.h"
#include "stores/Seller.h"

class KeyedListView;
class NavigationButtons;

/// The store to publish in, among those linked to a deposit, each with what the seller has
/// published there and what its plan allows. A store at its limit is painted red and can
/// still be chosen: going past the limit only asks for consent.
class PublishSelectMinistore : public WizardPage
{
    Q_OBJECT
public:
    PublishSelectMinistore(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Lists the stores anew; Siguiente waits for a click on one.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

private:
    void DoPublication();

    KeyedListView *m_list;
    NavigationButtons *m_buttons;
    Ministores m_ministores;
};
