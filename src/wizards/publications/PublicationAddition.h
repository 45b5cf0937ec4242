#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "shell/Operation.h"

#include <memory>

class AssociatedProduct;
class ZorvantaMinistore;

/// Publishes an associated product in a ministore: the pages choose the product, type its
/// values and choose the store, in that order.
class PublicationAddition : public Operation
{
public:
    using Values = ZorvantaProduct::Values;

    /// Writes the publication with the values the seller typed (the marketplace's own and the
    /// variants stay out). When this publication reaches the plan's limit the seller is asked
    /// first, and No writes nothing. Failures are reported and Perform returns normally.
    void Perform() override;
    std::string operationType() const override { return "PublicationAddition"; }

    const std::shared_ptr<AssociatedProduct> &Product() const { return m_product; }
    void setProduct(std::shared_ptr<AssociatedProduct> product) { m_product = std::move(product); }
    const std::shared_ptr<ZorvantaMinistore> &ministore() const { return m_ministore; }
    void setMinistore(std::shared_ptr<ZorvantaMinistore> ministore)
    {
        m_ministore = std::move(ministore);
    }
    const std::shared_ptr<Values> &values() const { return m_values; }
    void setValues(std::shared_ptr<Values> values) { m_values = std::move(values); }

private:
    /// Whether the seller goes on past the plan's limit; true when the limit is not reached.
    bool planAllows() const;

    std::shared_ptr<AssociatedProduct> m_product;
    std::shared_ptr<ZorvantaMinistore> m_ministore;
    std::shared_ptr<Values> m_values;
};
