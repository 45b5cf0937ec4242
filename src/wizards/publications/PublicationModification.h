#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "shell/Operation.h"

#include <memory>

class PublishedProduct;

/// Sends new values for a publication: the list chooses it, one page edits its values.
class PublicationModification : public Operation
{
public:
    using Values = ZorvantaProduct::Values;

    /// Gives the publication the values the seller typed and asks for them to be sent. A
    /// refusal (a withdrawal pending) is shown and changes nothing; Perform returns normally.
    void Perform() override;
    std::string operationType() const override { return "PublicationModification"; }

    const std::shared_ptr<PublishedProduct> &Product() const { return m_product; }
    void setProduct(std::shared_ptr<PublishedProduct> product) { m_product = std::move(product); }
    const std::shared_ptr<Values> &values() const { return m_values; }
    void setValues(std::shared_ptr<Values> values) { m_values = std::move(values); }

private:
    std::shared_ptr<PublishedProduct> m_product;
    std::shared_ptr<Values> m_values;
};
