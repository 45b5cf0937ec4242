#pragma once

#include "wizards/associations/AssociationStepPage.h"

class NavigationButtons;
class ZorvantaPropertiesGrid;

/// The third step of a new association: the values of the marketplace product's variant
/// properties, typed into the property grid. A product without variant properties has nothing
/// to ask, and the page passes straight on to the confirmation.
class AssociateZorvantaProperties : public AssociationStepPage
{
    Q_OBJECT
public:
    AssociateZorvantaProperties(PageHost &parent, const QString &controlName,
                                QWidget *widgetParent);

    void Start() override;

protected:
    /// An edition left open is dropped with the operation.
    void abandon() override;

private:
    void DoAssociation();

    ZorvantaPropertiesGrid *m_properties;
    NavigationButtons *m_buttons;
};
