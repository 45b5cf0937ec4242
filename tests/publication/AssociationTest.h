#pragma once

#include "FakeConnectors.h"
#include "ShirtTest.h"
#include "catalogue/SellerProduct.h"
#include "publication/AssociatedProduct.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

/// The demo seller's ERP, whose detail of an association is the reply the test gives.
class DetailErp : public FakeErp
{
public:
    std::int32_t ObtenerDefinicionProducto(std::int32_t type, const char *key, const char *store,
                                           char *reply) override
    {
        calls.push_back(std::to_string(type) + "|" + key + "|" + store);
        std::strcpy(reply, detailReply.c_str());
        return detailCode;
    }

    std::vector<std::string> calls;
    std::string detailReply;
    std::int32_t detailCode = 0;
};

/// Associations of the ERP's shirt ERP-0001 with the marketplace's shirt: Marca and Peso (a
/// decimal) are fixed, Color and Talla variant.
class AssociationTest : public ShirtTest<DetailErp>
{
protected:
    void SetUp() override
    {
        ShirtTest::SetUp();
        shirt = product(kShirt);
    }

    /// A new association of `dovelID` with the shirt, as the wizard builds it.
    std::shared_ptr<AssociatedProduct> association(const Pairs &pairs,
                                                   const std::string &dovelID = "ERP-0001")
    {
        auto product = std::make_shared<SellerProduct>();
        product->setDovelID(dovelID);
        auto association = std::make_shared<AssociatedProduct>();
        association->setSellerProd(product);
        association->setZorvantaProd(shirt);
        association->setVariantattributes(values(pairs));
        return association;
    }
    /// The display text of each value, "id=value", in the collection's order.
    static Texts shown(const std::shared_ptr<AssociatedProduct::Values> &values)
    {
        Texts texts;
        for (const auto &value : *values)
            texts.push_back(value->definition()->id() + "=" + value->value());
        return texts;
    }

    static constexpr const char *kShirt =
        "<ProductDefinition><PropertiesDefinition>"
        "<Property name='Marca' id='Marca' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Peso' id='Peso' dataType='Float' required='no' readOnly='no'/>"
        "<Property name='Color' id='Color' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Talla' id='Talla' dataType='String' required='yes' readOnly='no'/>"
        "</PropertiesDefinition><Definition name='pdRopa'>"
        "<Properties><Property id='Marca'/><Property id='Peso'/></Properties>"
        "<VariantProperties><Property id='Color'/><Property id='Talla'/></VariantProperties>"
        "</Definition></ProductDefinition>";
};
