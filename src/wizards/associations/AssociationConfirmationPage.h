#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "wizards/associations/AssociationStepPage.h"

#include <memory>

class NavigationButtons;
class SellerProduct;
class SellerProductGrid;
class ZorvantaPropertiesGrid;

/// The captions of a confirmation page.
struct ConfirmationTexts
{
    const char *title;
    const char *sellerCaption;
    const char *marketplaceCaption;
};

/// The last page of an association flow: both sides of the association about to be made or
/// removed, read-only, and Aceptar, which performs the wizard's operation and goes back to the
/// list whatever came of it.
class AssociationConfirmationPage : public AssociationStepPage
{
    Q_OBJECT
protected:
    AssociationConfirmationPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                                const ConfirmationTexts &texts);

    /// Shows the two sides: the properties of the marketplace product with `values`.
    void showSides(const std::shared_ptr<SellerProduct> &product,
                   const std::shared_ptr<ZorvantaProduct::Properties> &properties,
                   const std::shared_ptr<ZorvantaProduct::Values> &values);
    /// Where Anterior leads.
    virtual std::string previousPage() = 0;
    /// The label under which Aceptar's work reports its failures ("DoAssociation").
    virtual const char *acceptProcedure() const = 0;

private:
    void accept();

    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    NavigationButtons *m_buttons;
};
