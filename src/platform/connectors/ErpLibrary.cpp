#include "platform/connectors/ErpLibrary.h"

#include "platform/connectors/LoadedErpLibrary.h"

namespace {

std::shared_ptr<ErpLibrary> &installedErpLibrary()
{
    static std::shared_ptr<ErpLibrary> library;
    return library;
}

} // namespace

ErpLibrary &erpLibrary()
{
    auto &library = installedErpLibrary();
    if (!library)
        library = std::make_shared<LoadedErpLibrary>();
    return *library;
}

void setErpLibrary(std::shared_ptr<ErpLibrary> library)
{
    installedErpLibrary() = std::move(library);
}
