#pragma once

#include "wizards/associations/AssociationConfirmationPage.h"

/// Confirms a new association: the ERP product and the marketplace product with the values
/// chosen for it.
class ConfirmAssociationAddition : public AssociationConfirmationPage
{
    Q_OBJECT
public:
    ConfirmAssociationAddition(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    void Start() override;

protected:
    /// The properties page, or the product page when the properties page had nothing to ask.
    std::string previousPage() override;
    const char *acceptProcedure() const override { return "DoAssociation"; }
};
