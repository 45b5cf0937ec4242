#pragma once

#include <cstdint>
#include <memory>

class ZorvantaCategory;

/// The marketplace's catalogue as a tree: where every walk down the categories starts.
class ZorvantaService
{
public:
    ZorvantaService();

    /// A new category object for the root of the tree, whose id is empty; nothing is read yet.
    std::shared_ptr<ZorvantaCategory> RootCategory() const;
    std::int32_t ClassDebugID() const { return m_classDebugId; }

private:
    std::int32_t m_classDebugId;
};
