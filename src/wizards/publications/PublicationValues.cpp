#include "wizards/publications/PublicationValues.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"
#include "publication/FudgeValues.h"
#include "publication/PublishedProduct.h"

std::shared_ptr<ZorvantaProduct::Values> PublicationValues(PublishedProduct &publication)
{
    const auto association = publication.associatedProd();
    auto shown = FudgeValues(*association, MarketplaceValues::CharacteristicNotVariant);
    const auto properties = association->theZorvantaProduct()->properties();
    if (const auto typed = publication.nonCharateristicAttributes()) {
        for (const auto &value : *typed) {
            const auto &property = properties->item(value->definition()->id());
            if (!property->characteristic()) {
                value->setDefinition(property);
                shown->add(value, property->id());
            }
        }
    }
    return shown;
}
