#pragma once

#include "editors/ProductList.h"
#include "shell/frame/WizardPage.h"

class AssociatedProduct;
class NavigationButtons;
class SellerProductGrid;
class SellerSearch;
class ZorvantaPropertiesGrid;

/// The first step of a new publication: the associated product to publish, found with the
/// search and read page by page as the list scrolls, with its ERP and marketplace detail.
class PublishAssociatedProduct : public WizardPage
{
    Q_OBJECT
public:
    PublishAssociatedProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches the associated products, unless a product is chosen already, which is shown.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

private:
    void SellerSearch1_Changed();
    void GetMoreProducts();
    void ShowProduct();
    void clearDetail();
    void DoPublication();

    SellerSearch *m_search;
    ProductListGrid *m_grid;
    ProductList<AssociatedProduct> m_list;
    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    NavigationButtons *m_buttons;
};
