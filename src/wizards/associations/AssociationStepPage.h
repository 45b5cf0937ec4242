#pragma once

#include "shell/frame/WizardPage.h"

class NavigationButtons;

/// A page of the association wizard past the list: it can only be left by abandoning the
/// operation under way, which the seller confirms.
class AssociationStepPage : public WizardPage
{
    Q_OBJECT
public:
    /// Asks whether to abandon the operation; true on Yes.
    bool canStop() override;

protected:
    AssociationStepPage(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Cancelar: on Yes the operation is dropped and the wizard goes back to its list.
    void Cancel();
    /// Runs on Yes to Cancelar, before the operation is dropped.
    virtual void abandon() {}

    /// The bar at the page's foot, its Cancelar wired to Cancel.
    NavigationButtons *makeButtons();
};
