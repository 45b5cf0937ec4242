#pragma once

#include "shell/Collection.h"
#include "wizards/requests/RequestPage.h"

#include <memory>

class KeyedListView;
class ZorvantaProduct;

/// The definition the requested product is based on, among those of the request's category,
/// or "(Producto vacío)" for none; the properties of the one selected are listed beside.
class RequestGetProduct : public RequestPage
{
    Q_OBJECT
public:
    RequestGetProduct(PageHost &parent, const QString &controlName, QWidget *widgetParent);

    /// Reads the category's definitions unless the request has chosen one already, in which
    /// case the lists stay as they were left.
    void Start() override;

private:
    void FillDefinitions();
    void FillProduct();
    /// A new definition, or the empty product, starts the fields over; the same definition
    /// keeps them.
    void DoRequest() override;
    std::string backKey() override;
    /// The selected row of ListView1, from 1; 0 with none.
    int selectedIndex() const;

    KeyedListView *m_definitionList;
    KeyedListView *m_propertyList;
    std::shared_ptr<Collection<std::shared_ptr<ZorvantaProduct>>> definitions;
};
