#include "wizards/publications/ConfirmPublication.h"

#include "editors/SellerProductGrid.h"
#include "editors/ShownText.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/core/RaisedError.h"
#include "publication/AssociatedProduct.h"
#include "publication/PublishedProduct.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/publications/PublicationAddition.h"
#include "wizards/publications/PublicationModification.h"
#include "wizards/publications/PublicationRemoval.h"
#include "wizards/publications/PublicationValues.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

ConfirmPublication::ConfirmPublication(PageHost &parent, const QString &controlName,
                                       QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox(this);
    frame->setObjectName("Frame1");
    m_title = new QLabel(frame);
    m_title->setObjectName("Label3");
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_store = shownText("Text1", frame);
    m_association = shownText("Text2", frame);
    m_publication = shownText("Text3", frame);
    auto *fields = new QFormLayout;
    fields->addRow("Minitienda:", m_store);
    fields->addRow(QString::fromUtf8("Asociación:"), m_association);
    fields->addRow(QString::fromUtf8("Publicación:"), m_publication);

    m_sellerProduct = new SellerProductGrid(frame);
    m_sellerProduct->setObjectName("SellerProductGrid1");
    m_properties = new ZorvantaPropertiesGrid(frame);
    m_properties->setObjectName("ZorvantaPropertiesGrid1");
    auto *details = new QHBoxLayout;
    details->addWidget(m_sellerProduct, 1);
    details->addWidget(m_properties, 2);

    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(m_title);
    inside->addLayout(fields);
    inside->addLayout(details, 1);

    m_buttons = new NavigationButtons(this);
    m_buttons->setObjectName("NavigationButtons1");
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::AcceptClick, "NavigationButtons1_AcceptClick",
            [this] { DoPublication(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage(previousPage()); });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick",
            [this] { Parent().SwitchPage("Show"); });
}

void ConfirmPublication::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_buttons->setNextEnabled(false);
        // All read-only: the grid shows every group and edits nothing.
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        m_properties->showNonCharacteristic = true;
        m_properties->showPrices = true;
        m_properties->setCanEdit(false);
        const std::shared_ptr<Operation> operation = Parent().operation();
        if (const auto addition = std::dynamic_pointer_cast<PublicationAddition>(operation)) {
            if (addition->Product() == nullptr || addition->ministore() == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            show("Confirme la publicación", *addition->ministore(), *addition->Product(), {},
                 addition->values());
        } else if (const auto modification =
                       std::dynamic_pointer_cast<PublicationModification>(operation)) {
            const auto &publication = modification->Product();
            if (publication == nullptr || publication->ministore() == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            show("Confirme la modificación a la publicación", *publication->ministore(),
                 *publication->associatedProd(), publication->publicationId(),
                 modification->values());
        } else {
            const auto removal = requiredOperation<PublicationRemoval>(Parent());
            const auto &publication = removal->Product();
            if (publication == nullptr || publication->ministore() == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            show("Confirme la despublicación", *publication->ministore(),
                 *publication->associatedProd(), publication->publicationId(),
                 PublicationValues(*publication));
        }
    });
}

void ConfirmPublication::show(const char *title, const ZorvantaMinistore &ministore,
                              AssociatedProduct &association, const std::string &publicationId,
                              const std::shared_ptr<ZorvantaProduct::Values> &values)
{
    m_title->setText(QString::fromUtf8(title));
    m_store->setText(QString::fromStdString(ministore.id() + " : " + ministore.name()));
    m_association->setText(QString::fromStdString(association.associationId()));
    m_publication->setText(QString::fromStdString(publicationId));
    const auto &marketplaceProduct = association.theZorvantaProduct();
    if (marketplaceProduct == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    m_sellerProduct->setProduct(association.theSellerProduct());
    m_properties->sellerProduct = association.theSellerProduct();
    m_properties->AddHeadings();
    m_properties->setZorvantaProperties(marketplaceProduct->properties());
    m_properties->setValues(values);
}

bool ConfirmPublication::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("¿Desea abortar la operación?"); });
}

void ConfirmPublication::DoPublication()
{
    withHandler(handlerLabel("DoPublication"), [&] {
        requiredOperation<Operation>(Parent())->Perform();
        // Perform reports its own failures; the list is rebuilt either way.
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}

std::string ConfirmPublication::previousPage() const
{
    const std::string type = Parent().operation() ? Parent().operation()->operationType() : "";
    if (type == "PublicationAddition")
        return "PublishSelectMinistore";
    if (type == "PublicationModification")
        return "PublishAssociationNC";
    return "Show";
}
