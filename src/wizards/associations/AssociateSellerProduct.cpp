#include "wizards/associations/AssociateSellerProduct.h"

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
    : SearchListPage(
          parent, controlName, widgetParent,
          {QString::fromUtf8("Código"), QString::fromUtf8("Descripción"), "Referencia"},
          [](SellerProduct &product) { return product.dovelID(); },
          [](SellerProduct &product) {
              return product.dovelID() + "\t" + product.Description() + "\t" + product.Reference();
          },
          SearchListDetail::SellerProduct)
{
    auto *frame1 = new QGroupBox("Seleccione el producto Dovel a asociar", this);
    frame1->setObjectName("Frame1");
    auto *inside = new QVBoxLayout(frame1);
    inside->addWidget(m_searchFrame);
    inside->addWidget(captionLabel("Label1", "&Productos", m_grid, frame1));
    inside->addWidget(m_grid, 3);
    inside->addWidget(captionLabel("Label2", "De&talle", m_sellerProduct, frame1));
    inside->addWidget(m_sellerProduct, 2);

    m_buttons = makeButtons();
    m_buttons->setAcceptEnabled(false);
    m_buttons->setNextEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(titleLabel("Label3", "Seleccione el producto Dovel a asociar", this));
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

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
    refill();
    if (m_list.empty()) {
        m_buttons->setNextEnabled(false);
        return;
    }
    m_sellerProduct->setProduct(m_list.entry(1));
    m_buttons->setNextEnabled(true);
}

void AssociateSellerProduct::ShowProduct()
{
    m_sellerProduct->setProduct(m_list.selected());
}

void AssociateSellerProduct::DoAssociation()
{
    withHandler(handlerLabel("DoAssociation"), [&] {
        requiredOperation<AssociationAddition>(Parent())->setProduct(m_list.selected());
        Parent().SwitchPage("AssociateZorvantaProduct");
    });
}
