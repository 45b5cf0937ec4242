#include "wizards/associations/ConfirmAssociationRemoval.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "publication/AssociatedProduct.h"
#include "shell/frame/PageHost.h"
#include "wizards/associations/AssociationRemoval.h"

ConfirmAssociationRemoval::ConfirmAssociationRemoval(PageHost &parent, const QString &controlName,
                                                     QWidget *widgetParent)
    : AssociationConfirmationPage(
          parent, controlName, widgetParent,
          {"Confirme la Desasociacion de productos", "Producto DOVEL", "Producto Feria Nubalia"})
{
}

void ConfirmAssociationRemoval::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        const auto &association = requiredOperation<AssociationRemoval>(Parent())->Product();
        if (association == nullptr || association->theZorvantaProduct() == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        const auto &marketplace = association->theZorvantaProduct();
        auto shown = std::make_shared<ZorvantaProduct::Values>();
        if (const auto chosen = association->variantattributes()) {
            for (const auto &value : *chosen)
                shown->add(value, value->definition()->id());
        }
        // A characteristic property without a value, or with the seller's value already
        // there, is passed over.
        const auto own = marketplace->values();
        for (const auto &property : *marketplace->CharacteristicProperties()) {
            if (own == nullptr || shown->contains(property->id()))
                continue;
            if (const auto *value = own->find(property->id()))
                shown->add(*value, property->id());
        }
        showSides(association->theSellerProduct(), marketplace->properties(), shown);
    });
}
