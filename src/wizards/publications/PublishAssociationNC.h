#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "shell/frame/WizardPage.h"

#include <memory>

class AssociatedProduct;
class NavigationButtons;
class ZorvantaPropertiesGrid;

/// The values the seller types for a publication: prices, stock and the other properties of
/// its own. An addition passes on to the choice of the store, a modification to the
/// confirmation; a product with nothing to type passes by without showing the page.
class PublishAssociationNC : public WizardPage
{
    Q_OBJECT
public:
    PublishAssociationNC(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Shows the product of the wizard's addition or modification with the values kept in it.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

private:
    /// True when the product has no property for the seller to type.
    static bool nothingToType(AssociatedProduct &product);
    void showProduct(AssociatedProduct &product,
                     const std::shared_ptr<ZorvantaProduct::Values> &values);
    /// Whether every required value the seller types is there; when not, says so.
    bool requiredValuesPresent();
    void DoPublication();
    void DoModification();
    void goBack();

    ZorvantaPropertiesGrid *m_grid;
    NavigationButtons *m_buttons;
};
