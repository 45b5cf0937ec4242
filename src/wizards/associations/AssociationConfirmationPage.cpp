#include "wizards/associations/AssociationConfirmationPage.h"

#include "editors/SellerProductGrid.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/PageLabels.h"

#include <QGroupBox>
#include <QVBoxLayout>

AssociationConfirmationPage::AssociationConfirmationPage(PageHost &parent,
                                                         const QString &controlName,
                                                         QWidget *widgetParent,
                                                         const ConfirmationTexts &texts)
    : AssociationStepPage(parent, controlName, widgetParent)
{
    auto *frame1 = new QGroupBox(QString::fromUtf8(texts.title), this);
    frame1->setObjectName("Frame1");
    m_sellerProduct = new SellerProductGrid(frame1);
    m_sellerProduct->setObjectName("SellerProductGrid1");
    m_properties = new ZorvantaPropertiesGrid(frame1);
    m_properties->setObjectName("ZorvantaPropertiesGrid1");
    auto *inside = new QVBoxLayout(frame1);
    inside->addWidget(captionLabel("Label1", texts.sellerCaption, m_sellerProduct, frame1));
    inside->addWidget(m_sellerProduct, 2);
    inside->addWidget(captionLabel("Label2", texts.marketplaceCaption, m_properties, frame1));
    inside->addWidget(m_properties, 3);

    m_buttons = makeButtons();
    m_buttons->setNextEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(titleLabel("Label3", texts.title, this));
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::AcceptClick, "NavigationButtons1_AcceptClick",
            [this] { accept(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage(previousPage()); });
}

void AssociationConfirmationPage::showSides(
    const std::shared_ptr<SellerProduct> &product,
    const std::shared_ptr<ZorvantaProduct::Properties> &properties,
    const std::shared_ptr<ZorvantaProduct::Values> &values)
{
    m_properties->showCharacteristic = true;
    m_properties->showVariants = true;
    m_properties->setCanEdit(false);
    m_properties->setZorvantaProperties(properties);
    m_properties->setValues(values);
    m_sellerProduct->setProduct(product);
}

void AssociationConfirmationPage::accept()
{
    withHandler(handlerLabel(acceptProcedure()), [&] {
        // Perform has told the seller of any refusal or failure by the time it returns.
        requiredOperation<Operation>(Parent())->Perform();
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}
