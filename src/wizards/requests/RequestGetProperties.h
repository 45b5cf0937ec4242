#pragma once

#include "wizards/requests/RequestField.h"
#include "wizards/requests/RequestPage.h"

#include <memory>

class QPushButton;
class ZorvantaPropertiesGrid;

/// The properties of the requested product, in the property grid: those of the chosen
/// definition to begin with, which the seller may remove, and others the seller adds by name.
/// Every one is a plain text of up to 256 characters, whatever the definition says of it.
class RequestGetProperties : public RequestPage
{
    Q_OBJECT
public:
    RequestGetProperties(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Shows the request's fields; with none yet, one empty field for each property of the
    /// definition. Remove is disabled when there are no fields, and only an addition enables
    /// it again.
    void Start() override;

private:
    /// Shows `fields` in the grid, each as a property of its own with its value.
    void SetGrid();
    /// Takes what the grid holds into `fields`.
    void GetGrid();
    void Add_Click();
    void Remove_Click();
    void DoRequest() override;
    std::string backKey() override { return "GetName"; }
    /// What was typed since the last addition or removal is dropped.
    void beforeBack() override;
    void beforeCancel() override;

    ZorvantaPropertiesGrid *m_grid;
    QPushButton *m_add;
    QPushButton *m_remove;
    std::shared_ptr<RequestFields> fields;
};
