#pragma once

#include "shell/Collection.h"

#include <QWidget>

#include <cstdint>
#include <memory>

class DovelCategory;
class KeyedTreeView;
class ProductBrowser;
class ProductLine;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class ZorvantaMinistore;

/// Finds products in the seller's ERP, by walking its category tree or by a text matched
/// against the code, the description or the reference. It keeps one live source of product
/// lines and raises Changed when the source is new; the page then reads `products` and calls
/// GetMore while `allRead` is false, drawing the lines itself. Every failure is reported
/// through the failure path under the member's label and gives the empty result.
class SellerSearch : public QWidget
{
    Q_OBJECT
public:
    using Products = Collection<std::shared_ptr<ProductLine>>;
    using Ministores = Collection<std::shared_ptr<ZorvantaMinistore>>;

    /// Opens on the category tree, or on the code search when the ERP has no categories.
    explicit SellerSearch(QWidget *parent = nullptr);

    /// Lays the control out again and runs the present search anew.
    void Reset();
    /// The present page: of the selected category in the tree, else of the last text search.
    /// nullptr, after reporting, when there is none (an empty tree, no search yet).
    std::shared_ptr<Products> products();
    /// Reads the next page of the present source into `products`.
    void GetMore();
    /// Whether the present source has read its last page; false, after reporting, when there
    /// is none.
    bool allRead();

    /// Which list the ERP is asked for: 0 all products, 1 associated, 2 published, 3 pending.
    /// The last two show the store filter, filled with the stores linked to a deposit. Runs
    /// the present search again, even when the value is the same.
    void setSearchType(std::int16_t searchType);
    std::int16_t searchType() const { return m_searchType; }
    /// Narrows the lists to the store at `index` (0-based) of the filter.
    void setMinistore(int index);
    /// The store the lists are narrowed to; nullptr for all.
    const std::shared_ptr<ZorvantaMinistore> &selectedMinistore() const
    {
        return m_selectedMinistore;
    }

signals:
    /// The results are new: read `products` afresh.
    void Changed();
    /// The control's height changed: lay the page out again.
    void SizeChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void start();
    void Category_Click();
    void textOption_Click();
    void Combo1_Click();
    void fillMinistores();
    void fillTextResults();
    void fillCategoryResults();
    void adjustHeight();
    void layoutControls();
    void refresh();
    bool categoryMode() const;
    /// The category of the selected node; 91 when no node is selected.
    std::shared_ptr<DovelCategory> selectedCategory() const;

    QRadioButton *m_category;
    QRadioButton *m_code;
    QRadioButton *m_description;
    QRadioButton *m_reference;
    KeyedTreeView *m_tree;
    QLabel *m_label1;
    QLineEdit *m_searchText;
    QLabel *m_label2;
    QComboBox *m_combo;

    std::int16_t m_searchType = 0;
    std::shared_ptr<ZorvantaMinistore> m_selectedMinistore;
    std::shared_ptr<Ministores> m_ministores;
    Collection<std::shared_ptr<DovelCategory>> m_categories;
    std::shared_ptr<ProductBrowser> m_textBrowser;
};
