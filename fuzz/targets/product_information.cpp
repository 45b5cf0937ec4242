// A marketplace product's GetProductInformation reply, then its groups and values as the
// property grid reads them.
#include "FuzzProcess.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    auto product = std::make_shared<ZorvantaProduct>();
    readExpectingOwnErrors([&] { product->readProperties(fuzzText(data, size)); });
    readExpectingOwnErrors([&] {
        product->CharacteristicProperties();
        product->variantProperties();
        product->NonCharacteristicProperties();
    });
    if (const auto values = product->values()) {
        for (const std::shared_ptr<ZorvantaValue> &value : *values)
            value->value();
    }
    return 0;
}
