// The seller's stores: the catalogue service's GetSellerInformation reply before the first NUL
// of the input, the back office's store information after it.
#include "FuzzProcess.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    const std::pair<std::string, std::string> replies = fuzzTwoTexts(data, size);
    process.backOffice().queue(0, replies.second);
    readExpectingOwnErrors([&] { gSeller->readMinistores(replies.first); });
    return 0;
}
