#pragma once

#include "editors/ProductList.h"
#include "wizards/associations/AssociationStepPage.h"

class NavigationButtons;
class ZorvantaCategoryBrowser;
class ZorvantaProduct;
class ZorvantaPropertiesGrid;

/// The second step of a new association: the marketplace product, found by walking the
/// marketplace's categories, with the properties of the one the seller stops at.
class AssociateZorvantaProduct : public AssociationStepPage
{
    Q_OBJECT
public:
    AssociateZorvantaProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Draws the category tree from its root, unless a product is chosen already.
    void Start() override;

private:
    void ZorvantaCategoryBrowser1_Changed();
    void GetMoreProducts();
    void showProperties(ZorvantaProduct &product);
    void DoAssociation();

    ZorvantaCategoryBrowser *m_browser;
    ProductListGrid *m_grid;
    ProductList<ZorvantaProduct> m_list;
    ZorvantaPropertiesGrid *m_properties;
    NavigationButtons *m_buttons;
};
