#pragma once

#include "shell/Operation.h"

#include <memory>

class AssociatedProduct;

/// Deletes an association, which its store refuses while the association has publications.
class AssociationRemoval : public Operation
{
public:
    /// Removes the association; a refusal or a failure has been reported when this returns.
    void Perform() override;
    std::string operationType() const override { return "AssociationRemoval"; }

    const std::shared_ptr<AssociatedProduct> &Product() const { return m_product; }
    void setProduct(std::shared_ptr<AssociatedProduct> product) { m_product = std::move(product); }

private:
    std::shared_ptr<AssociatedProduct> m_product;
};
