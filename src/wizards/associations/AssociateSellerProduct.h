#pragma once

#include "catalogue/SellerProduct.h"
#include "editors/SearchListPage.h"
#include "wizards/associations/AssociationStepPage.h"

class NavigationButtons;

/// The first step of a new association: the ERP product, found with the search among all the
/// ERP's products and read page by page as the list scrolls.
class AssociateSellerProduct : public SearchListPage<SellerProduct, AssociationStepPage>
{
    Q_OBJECT
public:
    AssociateSellerProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches all products; the search starts afresh unless a product is chosen already.
    void Start() override;

private:
    void SellerSearch1_Changed() override;
    void ShowProduct() override;
    void DoAssociation();

    NavigationButtons *m_buttons;
};
