#include "wizards/publications/PublishAssociationNC.h"

#include "catalogue/ZorvantaProperty.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "publication/PublishedProduct.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/publications/PublicationAddition.h"
#include "wizards/publications/PublicationModification.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

PublishAssociationNC::PublishAssociationNC(PageHost &parent, const QString &controlName,
                                           QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox(QString::fromUtf8("Ingrese propiedades de la publicación"), this);
    frame->setObjectName("Frame1");
    auto *label = new QLabel(QString::fromUtf8("Ingrese las propiedades de la publicación"), frame);
    label->setObjectName("Label1");
    m_grid = new ZorvantaPropertiesGrid(frame);
    m_grid->setObjectName("ZorvantaPropertiesGrid1");
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(label);
    inside->addWidget(m_grid, 1);

    m_buttons = new NavigationButtons(this);
    m_buttons->setObjectName("NavigationButtons1");
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame, 1);
    page->addWidget(m_buttons);

    // Every button first closes the cell being typed, so that what is on screen is what counts.
    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick", [this] {
        m_grid->endEdition();
        if (std::dynamic_pointer_cast<PublicationModification>(Parent().operation()))
            DoModification();
        else
            DoPublication();
    });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick", [this] {
        m_grid->endEdition();
        goBack();
    });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick", [this] {
        m_grid->endEdition();
        Parent().SwitchPage("Show");
    });
}

void PublishAssociationNC::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_buttons->setAcceptEnabled(false);
        m_grid->showNonCharacteristic = true;
        m_grid->showPrices = true;
        m_grid->setCanEdit(true);
        const std::shared_ptr<Operation> operation = Parent().operation();
        if (const auto modification =
                std::dynamic_pointer_cast<PublicationModification>(operation)) {
            const auto product = modification->Product();
            if (product == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
            const auto association = product->associatedProd();
            if (nothingToType(*association))
                DoModification();
            else
                showProduct(*association, modification->values());
            return;
        }
        const auto addition = requiredOperation<PublicationAddition>(Parent());
        if (addition->Product() == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        if (nothingToType(*addition->Product()))
            DoPublication();
        else
            showProduct(*addition->Product(), addition->values());
    });
}

bool PublishAssociationNC::nothingToType(AssociatedProduct &product)
{
    const auto &marketplaceProduct = product.theZorvantaProduct();
    if (marketplaceProduct == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    // Such a product has no price block either, which the grid cannot lay out: the page passes
    // by without being drawn.
    return marketplaceProduct->NonCharacteristicProperties()->empty();
}

void PublishAssociationNC::showProduct(AssociatedProduct &product,
                                       const std::shared_ptr<ZorvantaProduct::Values> &values)
{
    const auto &marketplaceProduct = product.theZorvantaProduct();
    if (marketplaceProduct == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    m_grid->sellerProduct = product.theSellerProduct();
    m_grid->AddHeadings();
    m_grid->setZorvantaProperties(marketplaceProduct->properties());
    m_grid->setValues(values);
}

bool PublishAssociationNC::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("Desea abortar la operación?"); });
}

bool PublishAssociationNC::requiredValuesPresent()
{
    const auto properties = m_grid->ZorvantaProperties();
    if (properties == nullptr)
        return true;
    for (const auto &property : *properties) {
        if (m_grid->findValue(*property) == nullptr && property->required() &&
            !property->characteristic() && !property->readOnly()) {
            ui().msgBox("Los valores marcados en verde son obligatorios. Por favor ingreselos "
                        "antes de proceder",
                        MessageStyle::Exclamation, MessageButtons::Ok,
                        "Error en la entrada de datos");
            return false;
        }
    }
    return true;
}

void PublishAssociationNC::DoPublication()
{
    withHandler(handlerLabel("DoPublication"), [&] {
        const auto addition = requiredOperation<PublicationAddition>(Parent());
        if (!requiredValuesPresent())
            return;
        addition->setValues(m_grid->values());
        Parent().SwitchPage("PublishSelectMinistore");
    });
}

void PublishAssociationNC::DoModification()
{
    withHandler(handlerLabel("DoModification"), [&] {
        const auto modification = requiredOperation<PublicationModification>(Parent());
        if (!requiredValuesPresent())
            return;
        modification->setValues(m_grid->values());
        Parent().SwitchPage("ConfirmPublication");
    });
}

void PublishAssociationNC::goBack()
{
    // An addition keeps what was typed for when the seller comes forward again.
    if (const auto addition =
            std::dynamic_pointer_cast<PublicationAddition>(Parent().operation())) {
        addition->setValues(m_grid->values());
        Parent().SwitchPage("PublishAssociatedProduct");
    } else {
        Parent().SwitchPage("Show");
    }
}
