#pragma once

#include "editors/SearchListPage.h"
#include "publication/AssociatedProduct.h"

class NavigationButtons;

/// The first step of a new publication: the associated product to publish, found with the
/// search and read page by page as the list scrolls, with its ERP and marketplace detail.
class PublishAssociatedProduct : public SearchListPage<AssociatedProduct>
{
    Q_OBJECT
public:
    PublishAssociatedProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches the associated products, unless a product is chosen already, which is shown.
    void Start() override;
    /// Asks the user whether to abandon the operation.
    bool canStop() override;

private:
    void SellerSearch1_Changed() override;
    void ShowProduct() override;
    void DoPublication();

    NavigationButtons *m_buttons;
};
