#pragma once

#include "shell/Collection.h"

#include <QTreeWidget>

#include <memory>
#include <string>
#include <unordered_map>

/// A tree whose nodes are known by text keys, unique in the whole tree, as the category
/// browsers draw them. The control name is TreeView1.
class KeyedTreeView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit KeyedTreeView(QWidget *parent);

    /// Adds a node at the top level. A key already in the tree is error 457 and adds nothing.
    void addTopNode(const std::string &key, const std::string &text);
    /// Adds a node as the last child of the node under `parentKey`: 457 when `key` is in the
    /// tree already, 5 when no node has `parentKey`.
    void addChildNode(const std::string &parentKey, const std::string &key,
                      const std::string &text);
    /// Removes every node.
    void clearNodes();

    /// Selects the first node added at the top level; 9 when the tree is empty.
    void selectFirstNode();
    /// The key of the selected node; 91 when no node is selected.
    std::string selectedKey() const;

    /// A category's node key: a letter before the id, since a key may not be a number.
    static std::string categoryKey(const std::string &categoryId) { return "a" + categoryId; }
    /// The category id a node key stands for.
    static std::string categoryIdOf(const std::string &key) { return key.substr(1); }

    /// Draws each of `children` under the node `parentKey` and keeps it in `drawn` under its
    /// id. A category drawn before fails on both additions and is skipped: that keeps the tree
    /// free of duplicates when a node is visited again.
    template <class Category, class TextOf>
    void drawChildren(Collection<std::shared_ptr<Category>> &drawn, const std::string &parentKey,
                      Collection<std::shared_ptr<Category>> &children, TextOf textOf)
    {
        for (const auto &child : children) {
            ignoringErrors([&] { drawn.add(child, child->id()); });
            ignoringErrors(
                [&] { addChildNode(parentKey, categoryKey(child->id()), textOf(*child)); });
        }
    }

private:
    template <class Step> static void ignoringErrors(Step &&step)
    {
        try {
            step();
        } catch (...) {
        }
    }
    QTreeWidgetItem *makeNode(const std::string &key, const std::string &text);

    std::unordered_map<std::string, QTreeWidgetItem *> m_nodes;
};
