#pragma once

#include "editors/SearchListPage.h"
#include "publication/AssociatedProduct.h"

class QPushButton;

/// The first page of the association wizard: the seller's associations, read page by page as
/// the list scrolls, with both sides of the selected one below, and the doors to make a new
/// association or remove the selected one.
class ShowAssociations : public SearchListPage<AssociatedProduct>
{
    Q_OBJECT
public:
    ShowAssociations(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Searches the associations anew and shows the first.
    void Start() override;

private:
    void SellerSearch1_Changed() override;
    void ShowProduct() override;
    void DoAssociation();
    void DoDeassociation();

    QPushButton *m_associate;
    QPushButton *m_deassociate;
};
