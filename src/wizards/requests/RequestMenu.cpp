#include "wizards/requests/RequestMenu.h"

#include "shell/frame/PageHost.h"
#include "wizards/requests/CategoryRequest.h"
#include "wizards/requests/ProductRequest.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Pressing the button of the kind under way resumes it; the other kind discards it.
template <class Kind> void resumeOrStart(PageHost &wizard, const char *type)
{
    const std::shared_ptr<Operation> operation = wizard.operation();
    if (!operation || operation->operationType() != type)
        wizard.setOperation(std::make_shared<Kind>());
    wizard.SwitchPage("GetCategory");
}

} // namespace

RequestMenu::RequestMenu(PageHost &parent, const QString &controlName, QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox("Solicitud de nuevo producto", this);
    frame->setObjectName("Frame1");
    auto *title = new QLabel("Solicitud de nuevo producto", frame);
    title->setObjectName("Label1");
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);

    auto *category = new QPushButton(QString::fromUtf8("Nueva &Categoría"), frame);
    category->setObjectName("Category");
    auto *product = new QPushButton("Nuevo &Producto", frame);
    product->setObjectName("Product");
    auto *categoryText = new QLabel(
        QString::fromUtf8("Solicitud de una nueva categoría y un nuevo producto bajo esa "
                          "categoría."),
        frame);
    categoryText->setObjectName("Label2");
    auto *productText = new QLabel(
        QString::fromUtf8("Solicitud de un nuevo producto bajo una categoría existente."), frame);
    productText->setObjectName("Label3");

    auto *choices = new QGridLayout;
    choices->setColumnStretch(1, 1);
    choices->setHorizontalSpacing(12);
    choices->addWidget(category, 0, 0);
    choices->addWidget(categoryText, 0, 1);
    choices->addWidget(product, 1, 0);
    choices->addWidget(productText, 1, 1);
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(title);
    inside->addSpacing(12);
    inside->addLayout(choices);
    inside->addStretch();
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame);

    onEvent(category, &QPushButton::clicked, "Category_Click", [this] { DoNewCategory(); });
    onEvent(product, &QPushButton::clicked, "Product_Click", [this] { DoNewProduct(); });
}

void RequestMenu::DoNewCategory()
{
    resumeOrStart<CategoryRequest>(Parent(), "CategoryRequest");
}

void RequestMenu::DoNewProduct()
{
    resumeOrStart<ProductRequest>(Parent(), "ProductRequest");
}
