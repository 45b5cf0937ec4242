#pragma once

#include "editors/ProductList.h"
#include "shell/frame/WizardPage.h"

#include <memory>

class ProductListGrid;
class PublishedProduct;
class QPushButton;
class SellerProductGrid;
class SellerSearch;
class ZorvantaPropertiesGrid;

/// The first page of the publication wizard: the seller's publications in any state, the
/// selected one in detail, and the doors to publish, modify and withdraw.
class ShowPublications : public WizardPage
{
    Q_OBJECT
public:
    ShowPublications(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Lists the publications anew. With no ministore linked to a deposit it says so and
    /// leaves the wizard.
    void Start() override;

private:
    void SellerSearch1_Changed();
    void showSelection();
    void ShowProduct();
    void DoPublication();
    void ModifyPublication();
    void RemovePublication();

    ProductListGrid *m_grid;
    ProductList<PublishedProduct> m_list;
    SellerSearch *m_search;
    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    QPushButton *m_publish;
    QPushButton *m_modify;
    QPushButton *m_remove;
};
