#include "wizards/associations/AssociateZorvantaProduct.h"

#include "catalogue/ZorvantaProduct.h"
#include "editors/ZorvantaCategoryBrowser.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationAddition.h"
#include "wizards/associations/PageLabels.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

AssociateZorvantaProduct::AssociateZorvantaProduct(PageHost &parent, const QString &controlName,
                                                   QWidget *widgetParent)
    : AssociationStepPage(parent, controlName, widgetParent),
      m_grid(new ProductListGrid({QString::fromUtf8("Código"), QString::fromUtf8("Descripción")},
                                 nullptr)),
      m_list(
          *m_grid, [](ZorvantaProduct &product) { return product.id(); },
          [](ZorvantaProduct &product) { return product.id() + "\t" + product.name(); })
{
    auto *frame1 = new QGroupBox("Seleccione Producto Zorvanta a asociar", this);
    frame1->setObjectName("Frame1");
    m_browser = new ZorvantaCategoryBrowser(frame1);
    m_browser->setObjectName("ZorvantaCategoryBrowser1");
    m_grid->setParent(frame1);
    m_properties = new ZorvantaPropertiesGrid(frame1);
    m_properties->setObjectName("ZorvantaPropertiesGrid1");
    // The tree on the left; the products and the properties of the chosen one on the right.
    auto *inside = new QGridLayout(frame1);
    inside->addWidget(captionLabel("Label1", "&Categorías Feria Nubalia", m_browser, frame1), 0, 0);
    inside->addWidget(m_browser, 1, 0, 3, 1);
    inside->addWidget(captionLabel("Label2", "&Productos Feria Nubalia", m_grid, frame1), 0, 1);
    inside->addWidget(m_grid, 1, 1);
    inside->addWidget(captionLabel("Label3", "P&ropiedades", m_properties, frame1), 2, 1);
    inside->addWidget(m_properties, 3, 1);
    inside->setColumnStretch(0, 2);
    inside->setColumnStretch(1, 3);
    inside->setRowStretch(1, 1);
    inside->setRowStretch(3, 1);

    m_buttons = makeButtons();
    m_buttons->setAcceptEnabled(false);
    m_buttons->setNextEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(
        titleLabel("Label4", "Seleccione el producto de Feria Nubalia a asociar", this));
    page->addWidget(frame1, 1);
    page->addWidget(m_buttons);

    onEvent(m_browser, &ZorvantaCategoryBrowser::Changed, "ZorvantaCategoryBrowser1_Changed",
            [this] { ZorvantaCategoryBrowser1_Changed(); });
    onEvent(m_grid, &ProductListGrid::SelChange, "MSFlexGrid1_SelChange",
            [this] { showProperties(*m_list.selected()); });
    onEvent(m_grid, &ProductListGrid::Scroll, "MSFlexGrid1_Scroll", [this] { GetMoreProducts(); });
    onEvent(m_grid, &ProductListGrid::Resized, "MSFlexGrid1_Resize", [this] { GetMoreProducts(); });
    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoAssociation(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage("AssociateSellerProduct"); });
}

void AssociateZorvantaProduct::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_properties->showCharacteristic = true;
        m_properties->showVariants = true;
        m_grid->AddHeadings();
        if (requiredOperation<AssociationAddition>(Parent())->zorvantaDefinition() == nullptr)
            m_browser->Reset();
    });
}

void AssociateZorvantaProduct::ZorvantaCategoryBrowser1_Changed()
{
    m_list.clear();
    if (const auto products = m_browser->products())
        m_list.addPage(*products);
    GetMoreProducts();
    if (m_list.empty()) {
        m_properties->setZorvantaProperties(nullptr);
        m_properties->setValues(nullptr);
        m_buttons->setNextEnabled(false);
        return;
    }
    showProperties(*m_list.entry(1));
    m_buttons->setNextEnabled(true);
}

void AssociateZorvantaProduct::GetMoreProducts()
{
    withHandler(handlerLabel("GetMoreProducts"), [&] { m_list.GetMoreProducts(*m_browser); });
}

void AssociateZorvantaProduct::showProperties(ZorvantaProduct &product)
{
    // The first of these reads the product from the marketplace, once.
    m_properties->setZorvantaProperties(product.properties());
    m_properties->setValues(product.values());
}

void AssociateZorvantaProduct::DoAssociation()
{
    withHandler(handlerLabel("DoAssociation"), [&] {
        requiredOperation<AssociationAddition>(Parent())->setZorvantaDefinition(m_list.selected());
        Parent().SwitchPage("AssociateZorvantaProperties");
    });
}
