#pragma once

#include "editors/SearchListPage.h"
#include "publication/PublishedProduct.h"

#include <memory>

class QPushButton;

/// The one page of the send wizard: every operation that waits to reach the marketplace, over
/// all the ministores linked to a deposit, read page by page as the list scrolls, with the
/// selected one's detail and last error, and the door to send them all. A publication with two
/// waiting operations shows as two lines, each with its own state.
class ShowPendingPublications : public SearchListPage<PublishedProduct>
{
    Q_OBJECT
public:
    ShowPendingPublications(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Lists what waits anew and shows the first line. With no ministore linked to a deposit
    /// it says so and leaves the wizard.
    void Start() override;

private:
    void showFirst();
    void SellerSearch1_Changed() override;
    void ShowProduct() override;
    /// The values the read-only grid shows for a publication: the marketplace product's own
    /// fixed ones, the association's variant ones and the publication's non-characteristic
    /// ones, keyed by property id.
    std::shared_ptr<PublishedProduct::Values> FudgeValues(PublishedProduct &publication);
    void ShowError_Click();
    void DoSend();

    QPushButton *m_showError;
    QPushButton *m_send;
};
