#include "wizards/requests/CategoryRequest.h"

#include "catalogue/ZorvantaCategory.h"
#include "platform/core/RaisedError.h"
#include "shell/ErrorHandling.h"
#include "wizards/requests/ProductRequest.h"

CategoryRequest::CategoryRequest() = default;
CategoryRequest::~CategoryRequest() = default;

ProductRequest &CategoryRequest::product()
{
    if (!m_product)
        m_product = std::make_unique<ProductRequest>();
    return *m_product;
}

void CategoryRequest::Perform()
{
    withHandler("CategoryRequest:Perform", [&] {
        if (!m_parentCategory)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        std::shared_ptr<ZorvantaCategory> category =
            m_parentCategory->RequestNewSubcategory(m_name);
        // The refusal has been reported; without the category there is nothing to put under it.
        if (!category)
            return;
        product().setCategory(std::move(category));
        product().Perform();
    });
}
