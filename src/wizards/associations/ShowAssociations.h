#pragma once

#include "editors/ProductList.h"
#include "shell/frame/WizardPage.h"

class AssociatedProduct;
class QPushButton;
class SellerProductGrid;
class SellerSearch;
class ZorvantaPropertiesGrid;

/// The first page of the association wizard: the seller's associations, read page by page as
/// the list scrolls, with both sides of the selected one below, and the doors to make a new
/// association or remove the selected one.
class ShowAssociations : public WizardPage
{
    Q_OBJECT
public:
    ShowAssociations(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches the associations anew and shows the first.
    void Start() override;

private:
    void SellerSearch1_Changed();
    void GetMoreProducts();
    void ShowProduct();
    void clearDetail();
    void DoAssociation();
    void DoDeassociation();

    SellerSearch *m_search;
    ProductListGrid *m_grid;
    ProductList<AssociatedProduct> m_list;
    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    QPushButton *m_associate;
    QPushButton *m_deassociate;
};
