#pragma once

#include "editors/ProductList.h"
#include "publication/PublishedProduct.h"
#include "shell/frame/WizardPage.h"

#include <memory>

class QPushButton;
class SellerProductGrid;
class SellerSearch;
class ZorvantaPropertiesGrid;

/// The one page of the send wizard: every operation that waits to reach the marketplace, over
/// all the ministores linked to a deposit, read page by page as the list scrolls, with the
/// selected one's detail and last error, and the door to send them all. A publication with two
/// waiting operations shows as two lines, each with its own state.
class ShowPendingPublications : public WizardPage
{
    Q_OBJECT
public:
    ShowPendingPublications(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Lists what waits anew and shows the first line. With no ministore linked to a deposit
    /// it says so and leaves the wizard.
    void Start() override;

private:
    void showFirst();
    void SellerSearch1_Changed();
    void GetMoreProducts();
    void ShowProduct();
    /// The values the read-only grid shows for a publication: the marketplace product's own
    /// fixed ones, the association's variant ones and the publication's non-characteristic
    /// ones, keyed by property id.
    std::shared_ptr<PublishedProduct::Values> FudgeValues(PublishedProduct &publication);
    void ShowError_Click();
    void DoSend();

    SellerSearch *m_search;
    ProductListGrid *m_grid;
    ProductList<PublishedProduct> m_list;
    SellerProductGrid *m_sellerProduct;
    ZorvantaPropertiesGrid *m_properties;
    QPushButton *m_showError;
    QPushButton *m_send;
};
