#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Property ids, each with a value in the display form.
using PropertyPairs = std::vector<std::pair<std::string, std::string>>;

/// Values of `properties` as the pages give them: keyed by property id, in the display form.
inline std::shared_ptr<ZorvantaProduct::Values>
propertyValues(const ZorvantaProduct::Properties &properties, const PropertyPairs &pairs)
{
    auto values = std::make_shared<ZorvantaProduct::Values>();
    for (const auto &[id, text] : pairs) {
        auto value = std::make_shared<ZorvantaValue>();
        value->setDefinition(properties.item(id));
        value->setValue(text);
        values->add(value, id);
    }
    return values;
}
