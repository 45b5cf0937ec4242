#include "platform/xml/XmlTree.h"

#include "platform/xml/XmlNodeRef.h"

namespace {

// Visits node's subtree in document order, and alongside it twin, a subtree of the same
// shape; stops early when visit returns false.
template <typename Visit> void walkPaired(pugi::xml_node node, pugi::xml_node twin, Visit visit)
{
    pugi::xml_node source = node;
    pugi::xml_node target = twin;
    for (;;) {
        if (!visit(source, target))
            return;
        if (source.first_child()) {
            source = source.first_child();
            target = target.first_child();
            continue;
        }
        while (source != node && !source.next_sibling()) {
            source = source.parent();
            target = target.parent();
        }
        if (source == node)
            return;
        source = source.next_sibling();
        target = target.next_sibling();
    }
}

} // namespace

std::shared_ptr<XmlNodeRef> XmlTree::refer(const std::shared_ptr<XmlTree> &tree,
                                           pugi::xml_node node)
{
    auto [slot, inserted] = tree->m_handles.try_emplace(node.internal_object(), nullptr);
    if (!inserted)
        return slot->second->shared_from_this();
    try {
        auto ref = std::make_shared<XmlNodeRef>(tree, node);
        slot->second = ref.get();
        return ref;
    } catch (...) {
        tree->m_handles.erase(slot);
        throw;
    }
}

pugi::xml_node XmlTree::move(std::shared_ptr<XmlTree> from, pugi::xml_node node,
                             std::shared_ptr<XmlTree> to, pugi::xml_node parent)
{
    if (from == to)
        return parent.append_move(node);
    // The parser keeps each tree in its own memory, so crossing trees means copying.
    const pugi::xml_node copy = parent.append_copy(node);
    if (!copy)
        return copy;
    if (!from->m_handles.empty()) {
        walkPaired(node, copy, [&](pugi::xml_node source, pugi::xml_node target) {
            const auto found = from->m_handles.find(source.internal_object());
            if (found != from->m_handles.end()) {
                XmlNodeRef *ref = found->second;
                from->m_handles.erase(found);
                to->m_handles.emplace(target.internal_object(), ref);
                ref->m_tree = to;
                ref->m_node = target;
            }
            return true;
        });
    }
    node.parent().remove_child(node);
    return copy;
}

void XmlTree::remove(const std::shared_ptr<XmlTree> &tree, pugi::xml_node node)
{
    if (!tree->holdsHandleWithin(node)) {
        node.parent().remove_child(node);
        return;
    }
    auto apart = std::make_shared<XmlTree>();
    move(tree, node, apart, apart->m_document);
}

void XmlTree::forget(pugi::xml_node node) noexcept
{
    m_handles.erase(node.internal_object());
}

bool XmlTree::holdsHandleWithin(pugi::xml_node node) const
{
    bool held = false;
    if (!m_handles.empty()) {
        walkPaired(node, node, [&](pugi::xml_node source, pugi::xml_node) {
            held = m_handles.contains(source.internal_object());
            return !held;
        });
    }
    return held;
}
