#include "wizards/requests/RequestConfirmation.h"

#include "catalogue/ZorvantaCategory.h"
#include "editors/ShownText.h"
#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/requests/CategoryRequest.h"
#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

RequestConfirmation::RequestConfirmation(PageHost &parent, const QString &controlName,
                                         QWidget *widgetParent)
    : RequestPage(parent, controlName, widgetParent,
                  "Confirmación de solicitud de nuevo producto")
{
    m_category = shownText("Text1", this);
    m_categoryName = shownText("Text2", this);
    m_productName = shownText("Text3", this);
    m_fields = new KeyedListView("ListView1", {"Nombre", QString::fromUtf8("Descripción")}, this);
    m_categoryNameLabel = labelFor(m_categoryName, "Label2", "&Nombre de la nueva categoría");

    auto *names = new QGridLayout;
    names->setColumnStretch(1, 1);
    names->addWidget(labelFor(m_category, "Label3", "&Bajo la categoría"), 0, 0);
    names->addWidget(m_category, 0, 1);
    names->addWidget(m_categoryNameLabel, 1, 0);
    names->addWidget(m_categoryName, 1, 1);
    names->addWidget(labelFor(m_productName, "Label4", "Nombre del nuevo &producto"), 2, 0);
    names->addWidget(m_productName, 2, 1);
    content().addLayout(names);
    content().addWidget(labelFor(m_fields, "Label5", "P&ropiedades del nuevo producto"));
    content().addWidget(m_fields, 1);
    buttons().setNextEnabled(false);
    buttons().setAcceptEnabled(true);

    onEvent(&buttons(), &NavigationButtons::AcceptClick, "NavigationButtons1_AcceptClick",
            [this] { DoRequest(); });
}

void RequestConfirmation::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        const bool newCategory = isCategoryRequest(Parent());
        const ProductRequest &product = requestedProduct(Parent());
        const std::shared_ptr<ZorvantaCategory> category = requestCategory(Parent());
        if (!category)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_category->setText(QString::fromStdString(category->name()));
        m_categoryNameLabel->setVisible(newCategory);
        m_categoryName->setVisible(newCategory);
        if (newCategory) {
            m_categoryName->setText(
                QString::fromStdString(requiredOperation<CategoryRequest>(Parent())->name()));
            setCaption("Confirmación de solicitud de categoría");
        } else {
            setCaption("Confirmación de solicitud de nuevo producto");
        }
        m_productName->setText(QString::fromStdString(product.name()));
        m_fields->clear();
        for (const std::shared_ptr<RequestField> &field : *product.fields())
            m_fields->addRow(field->name, {field->name, field->data});
    });
}

void RequestConfirmation::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        requiredOperation<Operation>(Parent())->Perform();
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}

std::string RequestConfirmation::backKey()
{
    return requestedProduct(Parent()).definition() ? "GetImage" : "GetProperties";
}
