#include "catalogue/ZorvantaService.h"

#include "catalogue/ZorvantaCategory.h"
#include "shell/ClassDebugId.h"

ZorvantaService::ZorvantaService() : m_classDebugId(GetNextClassDebugID()) {}

std::shared_ptr<ZorvantaCategory> ZorvantaService::RootCategory() const
{
    auto root = std::make_shared<ZorvantaCategory>();
    root->setId("");
    return root;
}
