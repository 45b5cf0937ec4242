#include "wizards/requests/RequestGetProperties.h"

#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "platform/xml/XmlDocument.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/PageHost.h"
#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestFieldName.h"
#include "wizards/requests/RequestParts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Nothing escapes the texts: a quote in a name or markup in a value breaks the document.
XmlNode loadedElement(const std::string &text)
{
    XmlDocument document;
    if (!document.loadXML(text))
        raiseError(-10503, "El XML de la propiedad está mal construido: " + text);
    return document.documentElement();
}

} // namespace

RequestGetProperties::RequestGetProperties(PageHost &parent, const QString &controlName,
                                           QWidget *widgetParent)
    : RequestPage(parent, controlName, widgetParent,
                  "Ingrese las propiedades que desea para su producto")
{
    m_grid = new ZorvantaPropertiesGrid(this);
    m_grid->setObjectName("ZorvantaPropertiesGrid1");
    m_add = new QPushButton(QString::fromUtf8("&Añadir propiedad"), this);
    m_add->setObjectName("Add");
    m_remove = new QPushButton("&Eliminar propiedad", this);
    m_remove->setObjectName("Remove");
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_add);
    row->addWidget(m_remove);
    content().addWidget(m_grid, 1);
    content().addLayout(row);

    onEvent(m_add, &QPushButton::clicked, "Add_Click", [this] { Add_Click(); });
    onEvent(m_remove, &QPushButton::clicked, "Remove_Click", [this] { Remove_Click(); });
}

void RequestGetProperties::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_grid->showNonCharacteristic = true;
        m_grid->setCanEdit(true);
        const ProductRequest &request = requestedProduct(Parent());
        std::shared_ptr<ZorvantaProduct::Properties> props;
        if (request.definition())
            props = request.definition()->properties();
        if (!props)
            props = std::make_shared<ZorvantaProduct::Properties>();
        fields = request.fields();
        if (!fields || fields->empty()) {
            fields = std::make_shared<RequestFields>();
            for (const std::shared_ptr<ZorvantaProperty> &property : *props)
                fields->add(std::make_shared<RequestField>(
                                RequestField{property->id(), property->name(), {}}),
                            property->name());
        }
        if (fields->empty())
            m_remove->setEnabled(false);
        SetGrid();
    });
}

void RequestGetProperties::SetGrid()
{
    withHandler(handlerLabel("SetGrid"), [&] {
        auto properties = std::make_shared<ZorvantaProduct::Properties>();
        auto values = std::make_shared<ZorvantaProduct::Values>();
        for (const std::shared_ptr<RequestField> &field : *fields) {
            // The doubled blanks are the template's own.
            auto property = std::make_shared<ZorvantaProperty>();
            property->setXml(loadedElement("<Property name='" + field->name + "' id='" +
                                           field->id +
                                           "'  readOnly='no' required='no'  MaxValue = '256' "
                                           "dataType='String' type='NC'/>"));
            properties->add(property, property->id());
            auto value = std::make_shared<ZorvantaValue>();
            value->setDefinition(property);
            value->setXml(
                loadedElement("<Field fieldID='" + field->id + "'>" + field->data + "</Field>"));
            values->add(value, value->definition()->id());
        }
        m_grid->setZorvantaProperties(properties);
        m_grid->setValues(values);
    });
}

void RequestGetProperties::GetGrid()
{
    const std::shared_ptr<ZorvantaProduct::Values> values = m_grid->values();
    if (!values)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    for (const std::shared_ptr<RequestField> &field : *fields)
        field->data = values->item(field->id)->value();
}

void RequestGetProperties::Add_Click()
{
    RequestFieldName dialog(this);
    if (!dialog.showModal())
        return;
    if (fields->contains(dialog.fieldName)) {
        ui().msgBox("Este nombre ya existe.", MessageStyle::Plain, MessageButtons::Ok,
                    "Error en nombre de propiedad");
        return;
    }
    m_grid->endEdition();
    GetGrid();
    fields->add(std::make_shared<RequestField>(
                    RequestField{"|newField|" + dialog.fieldName, dialog.fieldName, {}}),
                dialog.fieldName);
    SetGrid();
    m_remove->setEnabled(true);
}

void RequestGetProperties::Remove_Click()
{
    m_grid->endEdition();
    GetGrid();
    const std::shared_ptr<ZorvantaProperty> selected = m_grid->SelectedProperty();
    if (!selected)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    fields->remove(selected->name());
    if (fields->empty())
        m_remove->setEnabled(false);
    SetGrid();
}

void RequestGetProperties::DoRequest()
{
    withHandler(handlerLabel("DoRequest"), [&] {
        m_grid->endEdition();
        GetGrid();
        ProductRequest &request = requestedProduct(Parent());
        request.setFields(fields);
        Parent().SwitchPage(request.definition() ? "GetImage" : "Confirmation");
    });
}

void RequestGetProperties::beforeBack()
{
    m_grid->endEdition();
}

void RequestGetProperties::beforeCancel()
{
    m_grid->abortEdition();
}
