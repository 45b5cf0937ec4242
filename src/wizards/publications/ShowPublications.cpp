#include "wizards/publications/ShowPublications.h"

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "platform/ui/Ui.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/PageHost.h"
#include "stores/Seller.h"
#include "stores/VirtualDeposit.h"
#include "wizards/publications/PublicationAddition.h"
#include "wizards/publications/PublicationModification.h"
#include "wizards/publications/PublicationRemoval.h"
#include "wizards/publications/PublicationValues.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

std::string lineOf(PublishedProduct &publication)
{
    const auto product = publication.AssociatedProduct_theSellerProduct();
    const auto marketplaceProduct = publication.AssociatedProduct_theZorvantaProduct();
    return product->dovelID() + "\t" + product->Description() + "\t" + product->Reference() + "\t" +
           (marketplaceProduct ? marketplaceProduct->id() : std::string()) + "\t" +
           publication.publicationId() + "\t" +
           publication.publicationDate().toString("yyyy-MM-dd hh:mm:ss").toStdString();
}

} // namespace

ShowPublications::ShowPublications(PageHost &parent, const QString &controlName,
                                   QWidget *widgetParent)
    : SearchListPage(
          parent, controlName, widgetParent,
          {QString::fromUtf8("Código"), QString::fromUtf8("Descripción"), "Referencia",
           QString::fromUtf8("Código Zorvanta"), QString::fromUtf8("Código Publicación"),
           QString::fromUtf8("Fecha de Publicación")},
          [](PublishedProduct &publication) {
              return publication.publicationId() + "|" +
                     publication.publicationDate().toString(Qt::ISODate).toStdString();
          },
          lineOf, SearchListDetail::SellerAndZorvantaProduct)
{
    m_publish = new QPushButton(QString::fromUtf8("&Crear nueva publicación"));
    m_publish->setObjectName("Publicar");
    m_modify = new QPushButton(QString::fromUtf8("M&odificar publicación"));
    m_modify->setObjectName("Modificar");
    m_remove = new QPushButton("&Despublicar");
    m_remove->setObjectName("Despublicar");
    QGroupBox *frame1 = listFrame("Productos Publicados", {m_publish, m_modify, m_remove});

    auto *top = new QHBoxLayout;
    top->addWidget(m_searchFrame, 1);
    top->addWidget(frame1, 3);
    auto *page = new QVBoxLayout(this);
    page->addLayout(top, 3);
    page->addLayout(detailRow(1, 2), 2);

    onEvent(m_publish, &QPushButton::clicked, "Publicar_Click", [this] { DoPublication(); });
    onEvent(m_modify, &QPushButton::clicked, "Modificar_Click", [this] { ModifyPublication(); });
    onEvent(m_remove, &QPushButton::clicked, "Despublicar_Click", [this] { RemovePublication(); });
}

void ShowPublications::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        int linked = 0;
        if (const auto deposits = gSeller->virtualDeposits()) {
            for (const auto &deposit : *deposits)
                linked += deposit->ministore() != nullptr ? 1 : 0;
        }
        if (linked == 0) {
            ui().msgBox("No hay minitiendas asociadas. Por favor asocie al menos una minitienda "
                        "antes de realizar una publicación.");
            Parent().SwitchPage("Stop");
            return;
        }
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        m_properties->showNonCharacteristic = true;
        m_properties->showPrices = true;
        m_properties->AddHeadings();
        m_search->Reset();
        // Setting the type runs the search, whose Changed fills the list.
        m_search->setSearchType(2);
        showSelection();
    });
}

void ShowPublications::SellerSearch1_Changed()
{
    refill();
    showSelection();
}

void ShowPublications::showSelection()
{
    const bool any = !m_list.empty();
    if (any)
        ShowProduct();
    else
        clearDetail();
    m_modify->setEnabled(any);
    m_remove->setEnabled(any);
    m_publish->setEnabled(true);
}

void ShowPublications::ShowProduct()
{
    withHandler(handlerLabel("ShowProduct"), [&] {
        if (m_grid->Row() < 1)
            return;
        const auto &publication = m_list.selected();
        m_sellerProduct->setProduct(publication->AssociatedProduct_theSellerProduct());
        m_properties->sellerProduct = publication->AssociatedProduct_theSellerProduct();
        m_properties->setZorvantaProperties(
            publication->AssociatedProduct_theZorvantaProduct()->properties());
        m_properties->setValues(PublicationValues(*publication));
    });
}

void ShowPublications::DoPublication()
{
    withHandler(handlerLabel("DoPublication"), [&] {
        // An addition under way is kept: coming back here and going forward keeps what was
        // entered.
        const auto operation = Parent().operation();
        if (operation == nullptr || operation->operationType() != "PublicationAddition")
            Parent().setOperation(std::make_shared<PublicationAddition>());
        Parent().SwitchPage("PublishAssociatedProduct");
    });
}

void ShowPublications::ModifyPublication()
{
    withHandler(handlerLabel("ModifyPublication"), [&] {
        if (m_grid->Row() < 1 || m_list.empty())
            return;
        auto modification = std::make_shared<PublicationModification>();
        Parent().setOperation(modification);
        modification->setProduct(m_list.selected());
        modification->setValues(PublicationValues(*m_list.selected()));
        Parent().SwitchPage("PublishAssociationNC");
    });
}

void ShowPublications::RemovePublication()
{
    withHandler(handlerLabel("RemovePublication"), [&] {
        if (m_grid->Row() < 1 || m_list.empty())
            return;
        auto removal = std::make_shared<PublicationRemoval>();
        Parent().setOperation(removal);
        removal->setProduct(m_list.selected());
        Parent().SwitchPage("ConfirmPublication");
    });
}
