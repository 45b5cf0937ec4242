#pragma once

#include "wizards/associations/AssociationConfirmationPage.h"

/// Confirms the removal of the association chosen in the list: its ERP product, and the
/// marketplace product with the seller's values beside the marketplace's characteristic ones.
class ConfirmAssociationRemoval : public AssociationConfirmationPage
{
    Q_OBJECT
public:
    ConfirmAssociationRemoval(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    void Start() override;

protected:
    /// Back to the list; the operation stays until the list's next action replaces it.
    std::string previousPage() override { return "Show"; }
    const char *acceptProcedure() const override { return "DoDeassociation"; }
};
