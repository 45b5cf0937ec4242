#include "wizards/publications/TypedValues.h"

#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/core/RaisedError.h"

std::shared_ptr<ZorvantaProduct::Values>
TypedValues(const std::shared_ptr<ZorvantaProduct::Values> &values)
{
    auto typed = std::make_shared<ZorvantaProduct::Values>();
    if (values == nullptr)
        return typed;
    for (const auto &value : *values) {
        const auto &property = value->definition();
        if (property == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        if (!property->characteristic() && !property->isVariant())
            typed->add(value, property->id());
    }
    return typed;
}
