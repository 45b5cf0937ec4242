#pragma once

#include "shell/Collection.h"

#include <QWidget>

#include <memory>

class KeyedTreeView;
class ZorvantaCategory;
class ZorvantaProduct;

/// The marketplace's category tree, from its visible root, grown one level each time a node
/// is visited; the page reads the products of the selected category page by page. TreeView1
/// fills the control. Every failure is reported through the failure path under the member's
/// label and gives the empty result.
class ZorvantaCategoryBrowser : public QWidget
{
    Q_OBJECT
public:
    using Products = Collection<std::shared_ptr<ZorvantaProduct>>;
    using Categories = Collection<std::shared_ptr<ZorvantaCategory>>;

    explicit ZorvantaCategoryBrowser(QWidget *parent = nullptr);

    /// The category last visited or read; nullptr before the first Reset.
    const std::shared_ptr<ZorvantaCategory> &currentCategory() const { return m_currentCategory; }
    /// Forgets the tree and draws it again from the root, asking the marketplace anew.
    void Reset();
    /// Makes the selected node's category the current one and gives its last page.
    std::shared_ptr<Products> products();
    /// Makes the selected node's category the current one and reads its next page.
    void GetMore();
    /// Makes the selected node's category the current one and says whether its last page has
    /// been read.
    bool allRead();

signals:
    /// A category was visited: read `products` afresh.
    void Changed();
    /// Offered as the ERP search offers it; this control keeps its height.
    void SizeChanged();

private:
    void fillCategoryResults();
    /// The selected node's category, now the current one; 91 when no node is selected.
    std::shared_ptr<ZorvantaCategory> selectCurrent();

    KeyedTreeView *m_tree;
    std::shared_ptr<Categories> m_categories;
    std::shared_ptr<ZorvantaCategory> m_currentCategory;
};
