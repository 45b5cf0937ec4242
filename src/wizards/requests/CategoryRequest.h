#pragma once

#include "shell/Operation.h"

#include <memory>
#include <string>

class ProductRequest;
class ZorvantaCategory;

/// Asks the marketplace for a new category and for a first product under it. The product's
/// name, fields, definition and picture belong to an inner ProductRequest, sent under the new
/// category once the marketplace has taken the category's request.
class CategoryRequest : public Operation
{
public:
    CategoryRequest();
    ~CategoryRequest() override;

    /// The category the new one is asked under.
    const std::shared_ptr<ZorvantaCategory> &parentCategory() const { return m_parentCategory; }
    void setParentCategory(std::shared_ptr<ZorvantaCategory> category)
    {
        m_parentCategory = std::move(category);
    }
    /// The new category's name.
    const std::string &name() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }
    /// The first product's request, made on first use; its name is the product's name.
    ProductRequest &product();

    /// Asks for the category, then sends the product under the category that comes back. A
    /// refused category is reported and stops there; a refused product leaves the category
    /// asked for on the marketplace.
    void Perform() override;
    std::string operationType() const override { return "CategoryRequest"; }

private:
    std::shared_ptr<ZorvantaCategory> m_parentCategory;
    std::string m_name;
    std::unique_ptr<ProductRequest> m_product;
};
