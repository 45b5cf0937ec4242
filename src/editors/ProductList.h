#pragma once

#include "editors/ProductListGrid.h"
#include "platform/core/RaisedError.h"
#include "shell/Collection.h"

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

/// A page's product list: the grid it draws and the collection of the entries it shows, line
/// by line, so that the selected line is the index of its entry. The page tells how an entry
/// is keyed and what its line says; the list reads the pages of a source (a search, a category
/// browser: `products`, `GetMore`, `allRead`) only as far as the grid needs them.
template <class Entry> class ProductList
{
public:
    using Entries = Collection<std::shared_ptr<Entry>>;
    /// The key of an entry in the collection; two entries with one key are error 457.
    using KeyOf = std::function<std::string(Entry &)>;
    /// The entry's line: its columns with a tab between them.
    using LineOf = std::function<std::string(Entry &)>;

    ProductList(ProductListGrid &grid, KeyOf keyOf, LineOf lineOf)
        : m_grid(grid), m_keyOf(std::move(keyOf)), m_lineOf(std::move(lineOf))
    {
    }

    /// A new, empty collection and a list of headings only.
    void clear()
    {
        m_entries = std::make_shared<Entries>();
        m_grid.clearLines();
    }

    /// Adds an entry and a line for each product of `page`, in order; the list's first line is
    /// selected as soon as it is there. A product of another kind than the list's is error 13.
    template <class Page> void addPage(Page &page)
    {
        for (auto &product : page) {
            std::shared_ptr<Entry> entry = entryOf(product);
            m_entries->add(entry, m_keyOf(*entry));
            m_grid.addLine(m_lineOf(*entry));
            if (m_entries->count() == 1)
                m_grid.setRow(1);
        }
    }

    /// Reads further pages of `source` while the lines held would leave a gap at the foot of
    /// the grid, and the source has more. Nothing is read for an empty list.
    template <class Source> void GetMoreProducts(Source &source)
    {
        if (m_entries->empty())
            return;
        const int visible = m_grid.visibleRows();
        while (m_grid.TopRow() + visible >= m_entries->count() && !source.allRead()) {
            const int held = m_entries->count();
            source.GetMore();
            const auto page = source.products();
            // A failed read has been reported by the source; the list stays as it is.
            if (page == nullptr)
                return;
            addPage(*page);
            // A page that brings nothing cannot fill the gap either.
            if (m_entries->count() == held)
                return;
        }
    }

    bool empty() const { return m_entries->empty(); }
    int count() const { return m_entries->count(); }
    /// The entry of line `row` (from 1); error 9 when there is none.
    const std::shared_ptr<Entry> &entry(int row) const { return m_entries->item(row); }
    /// The entry of the selected line; error 9 when none is selected.
    const std::shared_ptr<Entry> &selected() const { return m_entries->item(m_grid.Row()); }

private:
    template <class Product> std::shared_ptr<Entry> entryOf(const std::shared_ptr<Product> &item)
    {
        if constexpr (std::is_same_v<Product, Entry>) {
            return item;
        } else {
            auto entry = std::dynamic_pointer_cast<Entry>(item);
            if (entry == nullptr)
                raiseRuntimeError(RuntimeErrorNumber::TypeMismatch);
            return entry;
        }
    }

    ProductListGrid &m_grid;
    KeyOf m_keyOf;
    LineOf m_lineOf;
    std::shared_ptr<Entries> m_entries = std::make_shared<Entries>();
};
