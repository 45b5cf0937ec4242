#pragma once

#include "editors/ProductList.h"
#include "wizards/associations/AssociationStepPage.h"

class NavigationButtons;
class SellerProduct;
class SellerProductGrid;
class SellerSearch;

/// The first step of a new association: the ERP product, found with the search among all the
/// ERP's products and read page by page as the list scrolls.
class AssociateSellerProduct : public AssociationStepPage
{
    Q_OBJECT
public:
    AssociateSellerProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches all products; the search starts afresh unless a product is chosen already.
    void Start() override;

private:
    void SellerSearch1_Changed();
    void GetMoreProducts();
    void DoAssociation();

    SellerSearch *m_search;
    ProductListGrid *m_grid;
    ProductList<SellerProduct> m_list;
    SellerProductGrid *m_detail;
    NavigationButtons *m_buttons;
};
