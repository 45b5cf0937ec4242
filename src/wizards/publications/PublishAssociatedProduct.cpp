#include "wizards/publications/PublishAssociatedProduct.h"

#include "catalogue/SellerProduct.h"
#include "editors/AssociatedProductColumns.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/publications/NewPublicationValues.h"
#include "wizards/publications/PublicationAddition.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

// Only what is associated can be published.
constexpr std::int16_t kAssociatedProducts = 1;

} // namespace

PublishAssociatedProduct::PublishAssociatedProduct(PageHost &parent, const QString &controlName,
                                                   QWidget *widgetParent)
    : SearchListPage(parent, controlName, widgetParent, AssociatedProductColumns::headings(),
                     AssociatedProductColumns::keyOf, AssociatedProductColumns::lineOf,
                     SearchListDetail::SellerAndZorvantaProduct)
{
    auto *frame1 = new QGroupBox("Seleccione el producto a publicar", this);
    frame1->setObjectName("Frame1");
    auto *inside = new QVBoxLayout(frame1);
    inside->addWidget(m_searchFrame);
    inside->addWidget(m_grid, 3);
    inside->addLayout(detailRow(2, 3), 2);

    m_buttons = new NavigationButtons(this);
    m_buttons->setObjectName("NavigationButtons1");
    m_buttons->setAcceptEnabled(false);
    m_buttons->setNextEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoPublication(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage("Show"); });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick",
            [this] { Parent().SwitchPage("Show"); });
}

void PublishAssociatedProduct::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        m_grid->AddHeadings();
        // Setting the list to search runs the search, and Changed draws it; a product chosen
        // already keeps the list it was chosen from.
        m_search->setSearchType(kAssociatedProducts);
        const bool chosen = requiredOperation<PublicationAddition>(Parent())->Product() != nullptr;
        if (!chosen)
            m_search->Reset();
        if (m_list.empty())
            clearDetail();
        else
            ShowProduct();
    });
}

bool PublishAssociatedProduct::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("¿Desea abortar la operación?"); });
}

void PublishAssociatedProduct::SellerSearch1_Changed()
{
    clearDetail();
    refill();
    if (!m_list.empty())
        ShowProduct();
    m_buttons->setNextEnabled(!m_list.empty());
}

void PublishAssociatedProduct::ShowProduct()
{
    withHandler(handlerLabel("ShowProduct"), [&] {
        const auto &association = m_list.selected();
        m_sellerProduct->setProduct(association->theSellerProduct());
        const auto &marketplace = association->theZorvantaProduct();
        if (marketplace == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_properties->setZorvantaProperties(marketplace->properties());
        m_properties->setValues(withHandler(handlerLabel("FudgeValues"),
                                            [&] { return NewPublicationValues(*association); }));
    });
}

void PublishAssociatedProduct::DoPublication()
{
    withHandler(handlerLabel("DoPublication"), [&] {
        const auto addition = requiredOperation<PublicationAddition>(Parent());
        const auto &row = m_list.selected();
        // The same product keeps what was typed for it; another one starts afresh.
        if (addition->Product() == nullptr ||
            addition->Product()->associationId() != row->associationId()) {
            addition->setProduct(row);
            addition->setValues(NewPublicationValues(*row));
        }
        Parent().SwitchPage("PublishAssociationNC");
    });
}
