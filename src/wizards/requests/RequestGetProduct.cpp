#include "wizards/requests/RequestGetProduct.h"

#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/PageHost.h"
#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestParts.h"

#include <QLabel>
#include <QVBoxLayout>

RequestGetProduct::RequestGetProduct(PageHost &parent, const QString &controlName,
                                     QWidget *widgetParent)
    : RequestPage(parent, controlName, widgetParent,
                  "Seleccione el producto en el que desea basar su solicitud")
{
    m_definitionList = new KeyedListView("ListView1", {"Nombre", "Comentario"}, this);
    m_propertyList = new KeyedListView("ListView2", {"Propiedad"}, this);
    content().addWidget(labelFor(m_definitionList, "Label2", "&Definiciones:"));
    content().addWidget(m_definitionList, 1);
    content().addWidget(labelFor(m_propertyList, "Label3", "&Propiedades del producto:"));
    content().addWidget(m_propertyList, 1);

    onEvent(m_definitionList, &QTreeWidget::currentItemChanged, "ListView1_ItemClick",
            [this] { FillProduct(); });
}

void RequestGetProduct::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_definitionList->setFocus();
        if (!requestedProduct(Parent()).definition())
            FillDefinitions();
    });
}

void RequestGetProduct::FillDefinitions()
{
    withHandler(handlerLabel("FillDefinitions"), [&] {
        m_definitionList->clear();
        m_propertyList->clear();
        m_definitionList->addRow("1", {"(Producto vacío)", ""});
        // The first row stands selected, so Next always has a choice.
        m_definitionList->selectFirstRow();
        const std::shared_ptr<ZorvantaCategory> category = requestCategory(Parent());
        if (!category)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        definitions = category->productDefinitions();
        if (!definitions)
            return;
        for (const std::shared_ptr<ZorvantaProduct> &definition : *definitions)
            m_definitionList->addRow(std::to_string(m_definitionList->topLevelItemCount() + 1),
                                     {definition->id(), definition->Description()});
    });
}

void RequestGetProduct::FillProduct()
{
    withHandler(handlerLabel("FillProduct"), [&] {
        m_propertyList->clear();
        const int index = selectedIndex();
        if (index <= 1)
            return;
        const auto properties = definitions->item(index - 1)->properties();
        if (!properties)
            return;
        for (const auto &property : *properties)
            m_propertyList->addRow(property->id(), {property->name()});
    });
}

void RequestGetProduct::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        ProductRequest &request = requestedProduct(Parent());
        const int index = selectedIndex();
        if (index < 1)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        if (index > 1) {
            const std::shared_ptr<ZorvantaProduct> chosen = definitions->item(index - 1);
            if (!request.definition() || request.definition()->id() != chosen->id()) {
                request.setDefinition(chosen);
                request.setFields(std::make_shared<RequestFields>());
            }
        } else {
            request.setDefinition(nullptr);
            request.setFields(std::make_shared<RequestFields>());
        }
        Parent().SwitchPage("GetName");
    });
}

std::string RequestGetProduct::backKey()
{
    return isCategoryRequest(Parent()) ? "GetCategoryName" : "GetCategory";
}

int RequestGetProduct::selectedIndex() const
{
    QTreeWidgetItem *item = m_definitionList->currentItem();
    return item ? m_definitionList->indexOfTopLevelItem(item) + 1 : 0;
}
