#pragma once

#include "shell/Operation.h"

#include <memory>

class PublishedProduct;

/// Withdraws a publication chosen on the list.
class PublicationRemoval : public Operation
{
public:
    /// Asks for the withdrawal; a publication never sent disappears at once. Failures are
    /// reported and Perform returns normally.
    void Perform() override;
    std::string operationType() const override { return "PublicationRemoval"; }

    const std::shared_ptr<PublishedProduct> &Product() const { return m_product; }
    void setProduct(std::shared_ptr<PublishedProduct> product) { m_product = std::move(product); }

private:
    std::shared_ptr<PublishedProduct> m_product;
};
