#include "wizards/publications/NewPublicationValues.h"

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "publication/AssociatedProduct.h"
#include "publication/FudgeValues.h"

#include <array>

namespace {

struct PriceField
{
    const char *id;
    bool quantity;
};

// In the order the values are added, which is the order the grid's price block reads them.
constexpr std::array<PriceField, 14> kPriceFields{{
    {"Cy_List_Price", false},
    {"PromoPrice", false},
    {"WholeSalePrice", false},
    {"WholeSaleQuantity", true},
    {"Group1Price", false},
    {"Group1Quantity", true},
    {"Group2Price", false},
    {"Group2Quantity", true},
    {"Group3Price", false},
    {"Group3Quantity", true},
    {"Group4Price", false},
    {"Group4Quantity", true},
    {"Group5Price", false},
    {"Group5Quantity", true},
}};

} // namespace

std::shared_ptr<ZorvantaProduct::Values> NewPublicationValues(AssociatedProduct &association)
{
    auto values = FudgeValues(association, MarketplaceValues::CharacteristicNotVariant);
    const auto properties = association.theZorvantaProduct()->properties();
    for (const PriceField &field : kPriceFields) {
        if (values->contains(field.id))
            values->remove(std::string(field.id));
    }
    const std::string &price1 = association.theSellerProduct()->price1();
    for (const PriceField &field : kPriceFields) {
        // A product sold without prices of its own (nothing for the seller to type) is
        // published with none.
        if (!properties->contains(field.id))
            continue;
        auto value = std::make_shared<ZorvantaValue>();
        value->setDefinition(properties->item(field.id));
        value->setValue(field.quantity ? "1" : price1);
        values->add(value, field.id);
    }
    return values;
}
