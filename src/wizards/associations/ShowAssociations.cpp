#include "wizards/associations/ShowAssociations.h"

#include "editors/SellerProductGrid.h"
#include "editors/SellerSearch.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "publication/AssociatedProduct.h"
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

std::string lineOf(AssociatedProduct &association)
{
    const auto product = association.theSellerProduct();
    const auto &marketplace = association.theZorvantaProduct();
    return product->dovelID() + "\t" + product->Description() + "\t" + product->Reference() + "\t" +
           (marketplace ? marketplace->id() : std::string());
}

} // namespace

ShowAssociations::ShowAssociations(PageHost &parent, const QString &controlName,
                                   QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent),
      m_grid(new ProductListGrid({QString::fromUtf8("Código"), QString::fromUtf8("Descripción"),
                                  "Referencia", QString::fromUtf8("Código Zorvanta")},
                                 nullptr)),
      m_list(
          *m_grid, [](AssociatedProduct &line) { return line.associationId(); }, lineOf)
{
    auto *frame1 = new QGroupBox("Productos Asociados", this);
    frame1->setObjectName("Frame1");
    auto *frame2 = new QGroupBox(QString::fromUtf8("&Búsqueda"), frame1);
    frame2->setObjectName("Frame2");
    m_search = new SellerSearch(frame2);
    m_search->setObjectName("SellerSearch1");
    (new QVBoxLayout(frame2))->addWidget(m_search);
    m_grid->setParent(frame1);
    m_associate = new QPushButton(QString::fromUtf8("Crear nueva &asociación"), frame1);
    m_associate->setObjectName("Asociar");
    m_deassociate = new QPushButton("&Desasociar", frame1);
    m_deassociate->setObjectName("Desasociar");
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_associate);
    buttons->addWidget(m_deassociate);
    auto *inside1 = new QVBoxLayout(frame1);
    inside1->addWidget(frame2);
    inside1->addWidget(m_grid, 1);
    inside1->addLayout(buttons);

    auto *frame3 = new QGroupBox("Producto &Dovel", this);
    frame3->setObjectName("Frame3");
    m_sellerProduct = new SellerProductGrid(frame3);
    m_sellerProduct->setObjectName("SellerProductGrid1");
    (new QVBoxLayout(frame3))->addWidget(m_sellerProduct);
    auto *frame4 = new QGroupBox("Producto &Feria Nubalia", this);
    frame4->setObjectName("Frame4");
    m_properties = new ZorvantaPropertiesGrid(frame4);
    m_properties->setObjectName("ZorvantaPropertiesGrid1");
    (new QVBoxLayout(frame4))->addWidget(m_properties);
    auto *detail = new QHBoxLayout;
    detail->addWidget(frame3, 2);
    detail->addWidget(frame4, 3);

    auto *page = new QVBoxLayout(this);
    page->addWidget(titleLabel("Label1", "Productos Asociados", this));
    page->addWidget(frame1, 3);
    page->addLayout(detail, 2);

    onEvent(m_search, &SellerSearch::Changed, "SellerSearch1_Changed",
            [this] { SellerSearch1_Changed(); });
    onEvent(m_grid, &ProductListGrid::SelChange, "MSFlexGrid1_SelChange",
            [this] { ShowProduct(); });
    onEvent(m_grid, &ProductListGrid::Scroll, "MSFlexGrid1_Scroll", [this] { GetMoreProducts(); });
    onEvent(m_grid, &ProductListGrid::Resized, "MSFlexGrid1_Resize", [this] { GetMoreProducts(); });
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
    m_list.clear();
    clearDetail();
    if (const auto products = m_search->products())
        m_list.addPage(*products);
    GetMoreProducts();
    if (!m_list.empty()) {
        ShowProduct();
        m_deassociate->setEnabled(true);
    } else {
        m_deassociate->setEnabled(false);
    }
}

void ShowAssociations::GetMoreProducts()
{
    withHandler(handlerLabel("GetMoreProducts"), [&] { m_list.GetMoreProducts(*m_search); });
}

void ShowAssociations::clearDetail()
{
    m_properties->setZorvantaProperties(nullptr);
    m_properties->setValues(nullptr);
    m_sellerProduct->setProduct(nullptr);
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
