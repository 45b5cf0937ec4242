#include "wizards/associations/AssociateSellerProduct.h"

#include "catalogue/SellerProduct.h"
#include "editors/SellerProductGrid.h"
#include "editors/SellerSearch.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationAddition.h"
#include "wizards/associations/PageLabels.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace {

// Every product of the ERP may be associated.
constexpr std::int16_t kAllProducts = 0;

} // namespace

AssociateSellerProduct::AssociateSellerProduct(PageHost &parent, const QString &controlName,
                                               QWidget *widgetParent)
    : AssociationStepPage(parent, controlName, widgetParent),
      m_grid(new ProductListGrid(
          {QString::fromUtf8("Código"), QString::fromUtf8("Descripción"), "Referencia"}, nullptr)),
      m_list(
          *m_grid, [](SellerProduct &product) { return product.dovelID(); },
          [](SellerProduct &product) {
              return product.dovelID() + "\t" + product.Description() + "\t" + product.Reference();
          })
{
    auto *frame1 = new QGroupBox("Seleccione el producto Dovel a asociar", this);
    frame1->setObjectName("Frame1");
    auto *frame2 = new QGroupBox(QString::fromUtf8("&Búsqueda"), frame1);
    frame2->setObjectName("Frame2");
    m_search = new SellerSearch(frame2);
    m_search->setObjectName("SellerSearch1");
    (new QVBoxLayout(frame2))->addWidget(m_search);
    m_grid->setParent(frame1);
    m_detail = new SellerProductGrid(frame1);
    m_detail->setObjectName("SellerProductGrid1");
    auto *inside = new QVBoxLayout(frame1);
    inside->addWidget(frame2);
    inside->addWidget(captionLabel("Label1", "&Productos", m_grid, frame1));
    inside->addWidget(m_grid, 3);
    inside->addWidget(captionLabel("Label2", "De&talle", m_detail, frame1));
    inside->addWidget(m_detail, 2);

    m_buttons = makeButtons();
    m_buttons->setAcceptEnabled(false);
    m_buttons->setNextEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(titleLabel("Label3", "Seleccione el producto Dovel a asociar", this));
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

    onEvent(m_search, &SellerSearch::Changed, "SellerSearch1_Changed",
            [this] { SellerSearch1_Changed(); });
    onEvent(m_grid, &ProductListGrid::SelChange, "MSFlexGrid1_SelChange",
            [this] { m_detail->setProduct(m_list.selected()); });
    onEvent(m_grid, &ProductListGrid::Scroll, "MSFlexGrid1_Scroll", [this] { GetMoreProducts(); });
    onEvent(m_grid, &ProductListGrid::Resized, "MSFlexGrid1_Resize", [this] { GetMoreProducts(); });
    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoAssociation(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage("Show"); });
}

void AssociateSellerProduct::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_search->setSearchType(kAllProducts);
        m_grid->AddHeadings();
        if (requiredOperation<AssociationAddition>(Parent())->Product() == nullptr)
            m_search->Reset();
    });
}

void AssociateSellerProduct::SellerSearch1_Changed()
{
    m_list.clear();
    if (const auto products = m_search->products())
        m_list.addPage(*products);
    GetMoreProducts();
    if (m_list.empty()) {
        m_buttons->setNextEnabled(false);
        return;
    }
    m_detail->setProduct(m_list.entry(1));
    m_buttons->setNextEnabled(true);
}

void AssociateSellerProduct::GetMoreProducts()
{
    withHandler(handlerLabel("GetMoreProducts"), [&] { m_list.GetMoreProducts(*m_search); });
}

void AssociateSellerProduct::DoAssociation()
{
    withHandler(handlerLabel("DoAssociation"), [&] {
        requiredOperation<AssociationAddition>(Parent())->setProduct(m_list.selected());
        Parent().SwitchPage("AssociateZorvantaProduct");
    });
}
