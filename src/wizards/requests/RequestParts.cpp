#include "wizards/requests/RequestParts.h"

#include "shell/frame/PageHost.h"
#include "wizards/requests/CategoryRequest.h"
#include "wizards/requests/ProductRequest.h"

bool isCategoryRequest(const PageHost &wizard)
{
    const std::shared_ptr<Operation> operation = wizard.operation();
    if (!operation)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    if (operation->operationType() == "CategoryRequest")
        return true;
    if (operation->operationType() == "ProductRequest")
        return false;
    raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
}

ProductRequest &requestedProduct(const PageHost &wizard)
{
    if (isCategoryRequest(wizard))
        return requiredOperation<CategoryRequest>(wizard)->product();
    return *requiredOperation<ProductRequest>(wizard);
}

std::shared_ptr<ZorvantaCategory> requestCategory(const PageHost &wizard)
{
    if (isCategoryRequest(wizard))
        return requiredOperation<CategoryRequest>(wizard)->parentCategory();
    return requiredOperation<ProductRequest>(wizard)->Category();
}

void setRequestCategory(const PageHost &wizard, std::shared_ptr<ZorvantaCategory> category)
{
    if (isCategoryRequest(wizard))
        requiredOperation<CategoryRequest>(wizard)->setParentCategory(std::move(category));
    else
        requiredOperation<ProductRequest>(wizard)->setCategory(std::move(category));
}
