#include "platform/connectors/BackOfficeLibrary.h"

#include "platform/connectors/LoadedBackOfficeLibrary.h"

namespace {

std::shared_ptr<BackOfficeLibrary> &installedBackOfficeLibrary()
{
    static std::shared_ptr<BackOfficeLibrary> library;
    return library;
}

} // namespace

BackOfficeLibrary &backOfficeLibrary()
{
    auto &library = installedBackOfficeLibrary();
    if (!library)
        library = std::make_shared<LoadedBackOfficeLibrary>();
    return *library;
}

void setBackOfficeLibrary(std::shared_ptr<BackOfficeLibrary> library)
{
    installedBackOfficeLibrary() = std::move(library);
}
