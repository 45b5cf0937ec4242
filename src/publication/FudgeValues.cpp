#include "publication/FudgeValues.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "publication/AssociatedProduct.h"

std::shared_ptr<ZorvantaProduct::Values> FudgeValues(AssociatedProduct &association,
                                                     MarketplaceValues kept)
{
    const auto &product = association.theZorvantaProduct();
    if (product == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    const auto properties = product->properties();
    const auto own = product->values();
    if (properties == nullptr || own == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);

    auto shown = std::make_shared<ZorvantaProduct::Values>();
    for (const auto &value : *own) {
        const auto &property = properties->item(value->definition()->id());
        const bool wanted = kept == MarketplaceValues::NotVariant || property->characteristic();
        if (wanted && !property->isVariant())
            shown->add(value, property->id());
    }
    if (const auto chosen = association.variantattributes()) {
        for (const auto &value : *chosen) {
            const auto &property = properties->item(value->definition()->id());
            if (property->isVariant()) {
                value->setDefinition(property);
                shown->add(value, property->id());
            }
        }
    }
    return shown;
}
