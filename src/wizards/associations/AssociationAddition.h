#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "shell/Operation.h"

#include <memory>

class SellerProduct;

/// Binds an ERP product to a marketplace product with the values the seller chose for its
/// variant properties. The selection pages fill it one choice after the other; each choice
/// stays when the seller goes back.
class AssociationAddition : public Operation
{
public:
    using Values = ZorvantaProduct::Values;

    /// Drops every value of a property that is not variant, then writes the association. A
    /// refusal or a failure has been reported to the seller when this returns.
    void Perform() override;
    std::string operationType() const override { return "AssociationAddition"; }

    const std::shared_ptr<SellerProduct> &Product() const { return m_product; }
    void setProduct(std::shared_ptr<SellerProduct> product) { m_product = std::move(product); }
    /// The marketplace product chosen (a product, despite the name).
    const std::shared_ptr<ZorvantaProduct> &zorvantaDefinition() const { return m_definition; }
    void setZorvantaDefinition(std::shared_ptr<ZorvantaProduct> product)
    {
        m_definition = std::move(product);
    }
    const std::shared_ptr<Values> &values() const { return m_values; }
    void setValues(std::shared_ptr<Values> values) { m_values = std::move(values); }

private:
    std::shared_ptr<SellerProduct> m_product;
    std::shared_ptr<ZorvantaProduct> m_definition;
    std::shared_ptr<Values> m_values;
};
