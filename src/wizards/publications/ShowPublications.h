#pragma once

#include "editors/SearchListPage.h"
#include "publication/PublishedProduct.h"

class QPushButton;

/// The first page of the publication wizard: the seller's publications in any state, the
/// selected one in detail, and the doors to publish, modify and withdraw.
class ShowPublications : public SearchListPage<PublishedProduct>
{
    Q_OBJECT
public:
    ShowPublications(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Lists the publications anew. With no ministore linked to a deposit it says so and
    /// leaves the wizard.
    void Start() override;

private:
    void SellerSearch1_Changed() override;
    void showSelection();
    void ShowProduct() override;
    void DoPublication();
    void ModifyPublication();
    void RemovePublication();

    QPushButton *m_publish;
    QPushButton *m_modify;
    QPushButton *m_remove;
};
