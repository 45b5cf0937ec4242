#include "wizards/associations/ShowAssociations.h"

#include "editors/AssociatedProductColumns.h"
#include "publication/FudgeValues.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationAddition.h"
#include "wizards/associations/AssociationRemoval.h"
#include "wizards/associations/PageLabels.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The list searches the ERP's list of associated products.
constexpr std::int16_t kAssociatedProducts = 1;

} // namespace

ShowAssociations::ShowAssociations(PageHost &parent, const QString &controlName,
                                   QWidget *widgetParent)
    : SearchListPage(parent, controlName, widgetParent, AssociatedProductColumns::headings(),
                     AssociatedProductColumns::keyOf, AssociatedProductColumns::lineOf,
                     SearchListDetail::SellerAndZorvantaProduct)
{
    m_associate = new QPushButton(QString::fromUtf8("Crear nueva &asociación"));
    m_associate->setObjectName("Asociar");
    m_deassociate = new QPushButton("&Desasociar");
    m_deassociate->setObjectName("Desasociar");
    QGroupBox *frame1 =
        listFrame("Productos Asociados", {m_associate, m_deassociate}, m_searchFrame);

    auto *frame3 = new QGroupBox("Producto &Dovel", this);
    frame3->setObjectName("Frame3");
    (new QVBoxLayout(frame3))->addWidget(m_sellerProduct);
    auto *frame4 = new QGroupBox("Producto &Feria Nubalia", this);
    frame4->setObjectName("Frame4");
    (new QVBoxLayout(frame4))->addWidget(m_properties);
    auto *detail = new QHBoxLayout;
    detail->addWidget(frame3, 2);
    detail->addWidget(frame4, 3);

    auto *page = new QVBoxLayout(this);
    page->addWidget(titleLabel("Label1", "Productos Asociados", this));
    page->addWidget(frame1, 3);
    page->addLayout(detail, 2);

    onEvent(m_associate, &QPushButton::clicked, "Asociar_Click", [this] { DoAssociation(); });
    onEvent(m_deassociate, &QPushButton::clicked, "Desasociar_Click",
            [this] { DoDeassociation(); });
}

void ShowAssociations::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        withHandler(handlerLabel("AddHeadings"), [&] { m_grid->AddHeadings(); });
        // Setting the list to search runs the search, and Changed draws it.
        m_search->setSearchType(kAssociatedProducts);
        const auto products = m_search->products();
        if (products == nullptr || products->empty())
            clearDetail();
        else
            ShowProduct();
    });
}

void ShowAssociations::SellerSearch1_Changed()
{
    clearDetail();
    refill();
    if (!m_list.empty()) {
        ShowProduct();
        m_deassociate->setEnabled(true);
    } else {
        m_deassociate->setEnabled(false);
    }
}

void ShowAssociations::ShowProduct()
{
    withHandler(handlerLabel("ShowProduct"), [&] {
        const auto &association = m_list.selected();
        m_sellerProduct->setProduct(association->theSellerProduct());
        const auto &marketplace = association->theZorvantaProduct();
        if (marketplace == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_properties->setZorvantaProperties(marketplace->properties());
        const auto values = withHandler(handlerLabel("FudgeValues"), [&] {
            return FudgeValues(*association, MarketplaceValues::NotVariant);
        });
        m_properties->setValues(values);
    });
}

void ShowAssociations::DoAssociation()
{
    withHandler(handlerLabel("DoAssociation"), [&] {
        // An addition under way keeps the choices made so far.
        const auto operation = Parent().operation();
        if (operation == nullptr || operation->operationType() != "AssociationAddition")
            Parent().setOperation(std::make_shared<AssociationAddition>());
        Parent().SwitchPage("AssociateSellerProduct");
    });
}

void ShowAssociations::DoDeassociation()
{
    withHandler(handlerLabel("DoDeassociation"), [&] {
        if (m_grid->Row() < 1)
            return;
        auto removal = std::make_shared<AssociationRemoval>();
        removal->setProduct(m_list.selected());
        Parent().setOperation(removal);
        Parent().SwitchPage("ConfirmAssociationRemoval");
    });
}
