// A page of an ERP category as each of the four lists reads it. The first byte of the input
// chooses the list (its two low bits: all products, associated, published, pending) and the
// ERP's code (the next bits); the rest is the reply.
#include "FuzzProcess.h"
#include "catalogue/DovelCategory.h"
#include "catalogue/ProductLine.h"
#include "catalogue/SellerProduct.h"
#include "publication/SellerLists.h"

#include <array>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool registered = (registerSellerListLines(), true);
    (void)registered;
    if (size == 0)
        return 0;
    // Success, the ends of the list, the last page backwards and forwards, no products left.
    constexpr std::array<std::int32_t, 6> kCodes = {0, 101, 102, 103, 6007, 6001};
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    process.erp().code = kCodes[(data[0] >> 4) % kCodes.size()];
    process.erp().reply = fuzzText(data + 1, size - 1);

    auto category = std::make_shared<DovelCategory>();
    category->setProductType(static_cast<std::int16_t>(data[0] & 3));
    category->StartQuery();
    category->GetMore();
    if (const auto &products = category->products()) {
        for (const std::shared_ptr<ProductLine> &line : *products)
            line->sellerProduct()->dovelID();
    }
    return 0;
}
