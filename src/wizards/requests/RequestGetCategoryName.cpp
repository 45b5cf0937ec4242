#include "wizards/requests/RequestGetCategoryName.h"

#include "shell/frame/PageHost.h"
#include "wizards/requests/CategoryRequest.h"

RequestGetCategoryName::RequestGetCategoryName(PageHost &parent, const QString &controlName,
                                               QWidget *widgetParent)
    : RequestNamePage(parent, controlName, widgetParent,
                      "Ingrese el nombre de la categoría a solicitar")
{
}

std::string RequestGetCategoryName::storedName()
{
    return requiredOperation<CategoryRequest>(Parent())->name();
}

void RequestGetCategoryName::storeName(std::string name)
{
    requiredOperation<CategoryRequest>(Parent())->setName(std::move(name));
}
