// A page of an ERP product search as each of the four lists reads it; the first byte of the
// input chooses the list (two low bits) and the ERP's code (the next bits), the rest is the
// reply.
#include "FuzzProcess.h"
#include "catalogue/ProductBrowser.h"
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
    // Success, the ends of the list, nothing found, too much found.
    constexpr std::array<std::int32_t, 6> kCodes = {0, 101, 102, 103, 8002, 8007};
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    process.erp().code = kCodes[(data[0] >> 4) % kCodes.size()];
    process.erp().reply = fuzzText(data + 1, size - 1);

    auto browser = std::make_shared<ProductBrowser>();
    browser->setProductType(static_cast<std::int16_t>(data[0] & 3));
    browser->setSearchString("a");
    browser->StartQuery();
    if (const auto &products = browser->products()) {
        for (const std::shared_ptr<ProductLine> &line : *products)
            line->sellerProduct()->dovelID();
    }
    return 0;
}
