#include "wizards/requests/RequestGetName.h"

#include "wizards/requests/ProductRequest.h"
#include "wizards/requests/RequestParts.h"

RequestGetName::RequestGetName(PageHost &parent, const QString &controlName,
                               QWidget *widgetParent)
    : RequestNamePage(parent, controlName, widgetParent,
                      "Ingrese el nombre del producto a solicitar")
{
}

std::string RequestGetName::storedName()
{
    return requestedProduct(Parent()).name();
}

void RequestGetName::storeName(std::string name)
{
    requestedProduct(Parent()).setName(std::move(name));
}
