#include "wizards/associations/AssociateZorvantaProperties.h"

#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/ui/Ui.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationAddition.h"
#include "wizards/associations/PageLabels.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

AssociateZorvantaProperties::AssociateZorvantaProperties(PageHost &parent,
                                                         const QString &controlName,
                                                         QWidget *widgetParent)
    : AssociationStepPage(parent, controlName, widgetParent)
{
    auto *frame1 = new QGroupBox(
        QString::fromUtf8("&Ingrese las características de su producto en Zorvanta"), this);
    frame1->setObjectName("Frame1");
    m_properties = new ZorvantaPropertiesGrid(frame1);
    m_properties->setObjectName("ZorvantaPropertiesGrid1");
    (new QVBoxLayout(frame1))->addWidget(m_properties);

    m_buttons = makeButtons();
    m_buttons->setAcceptEnabled(false);
    auto *page = new QVBoxLayout(this);
    QLabel *title =
        titleLabel("Label1", "&Ingrese las características de su producto en Feria Nubalia", this);
    // The caption's mnemonic leads to the grid, as the frame's does.
    title->setBuddy(m_properties);
    page->addWidget(title);
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick", [this] {
        m_properties->endEdition();
        DoAssociation();
    });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick", [this] {
        m_properties->endEdition();
        Parent().SwitchPage("AssociateZorvantaProduct");
    });
}

void AssociateZorvantaProperties::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        const auto addition = requiredOperation<AssociationAddition>(Parent());
        const auto &product = addition->zorvantaDefinition();
        if (product == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        if (product->variantProperties()->empty()) {
            // A copy: the operation keeps only the seller's choices, never the product's own.
            auto values = std::make_shared<AssociationAddition::Values>();
            if (const auto own = product->values()) {
                for (const auto &value : *own)
                    values->add(value, value->definition()->id());
            }
            addition->setValues(values);
            Parent().SwitchPage("ConfirmAssociationAddition");
            return;
        }
        // Only the variant properties are asked for.
        m_properties->showCharacteristic = false;
        m_properties->showVariants = true;
        m_properties->setCanEdit(true);
        m_properties->setZorvantaProperties(product->properties());
        m_properties->setValues(product->values());
    });
}

void AssociateZorvantaProperties::abandon()
{
    m_properties->abortEdition();
}

void AssociateZorvantaProperties::DoAssociation()
{
    withHandler(handlerLabel("DoAssociation"), [&] {
        const auto properties = m_properties->ZorvantaProperties();
        const auto values = m_properties->values();
        for (const auto &property : *properties) {
            // An empty text is still a value; only a missing entry is none.
            const bool hasValue = values != nullptr && values->contains(property->id());
            if (property->isVariant() && property->required() && !property->readOnly() &&
                !hasValue) {
                ui().msgBox("Los valores marcados en verde son obligatorios. Por favor "
                            "ingreselos antes de proceder",
                            MessageStyle::Plain, MessageButtons::Ok,
                            "Error en la entrada de datos");
                return;
            }
        }
        requiredOperation<AssociationAddition>(Parent())->setValues(values);
        Parent().SwitchPage("ConfirmAssociationAddition");
    });
}
