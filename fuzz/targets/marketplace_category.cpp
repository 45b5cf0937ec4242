// A marketplace category's reply, read both as a page of its content (GetCategoryContent) and
// as its product templates (GetProductDefinition); then the first product and template found
// are opened as the pages open them.
#include "FuzzProcess.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProcess &process = FuzzProcess::get();
    process.beginRun();
    const std::string reply = fuzzText(data, size);

    auto category = std::make_shared<ZorvantaCategory>();
    // StartQuery makes the lists a page fills; its call fails here, with no client bound, and
    // is reported as any failed call is.
    category->StartQuery();
    readExpectingOwnErrors([&] { category->readContentPage(reply); });
    if (const auto &children = category->children(); children && !children->empty())
        children->item(1)->name();

    ZorvantaCategory::Products definitions;
    readExpectingOwnErrors([&] { ZorvantaCategory::readProductDefinitions(reply, definitions); });
    if (!definitions.empty())
        definitions.item(1)->properties();
    return 0;
}
