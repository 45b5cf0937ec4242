// The product list the wizard pages share: what a page sees of a source of pages, and how many
// pages it reads to fill the grid and to follow a scroll.

#include "editors/ProductList.h"

#include "ShellTest.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Item
{
    std::string code;
    std::string name;
};
using Items = Collection<std::shared_ptr<Item>>;

/// A source of `total` items in pages of `pageSize`, as the search and the category browser
/// give them: `products` is the last page read, `allRead` says whether it was the last.
class PagedSource
{
public:
    PagedSource(int total, int pageSize) : m_total(total), m_pageSize(pageSize) { GetMore(); }

    std::shared_ptr<Items> products() { return m_page; }
    bool allRead() const { return m_read >= m_total; }
    void GetMore()
    {
        ++pagesRead;
        m_page = std::make_shared<Items>();
        for (int n = 0; n < m_pageSize && m_read < m_total; ++n, ++m_read)
            m_page->add(std::make_shared<Item>(
                Item{"C" + std::to_string(m_read + 1), "Producto " + std::to_string(m_read + 1)}));
    }
    int pagesRead = 0;

private:
    int m_total;
    int m_pageSize;
    int m_read = 0;
    std::shared_ptr<Items> m_page;
};

class ProductListTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        grid = std::make_unique<ProductListGrid>(QStringList{"Código", "Descripción"}, nullptr);
        grid->resize(400, 300);
        grid->show();
        list = std::make_unique<ProductList<Item>>(
            *grid, [](Item &item) { return item.code; },
            [](Item &item) { return item.code + "\t" + item.name; });
    }
    void TearDown() override
    {
        list.reset();
        grid.reset();
        ShellTest::TearDown();
    }
    /// What a page does when its source has new results.
    void show(PagedSource &source)
    {
        list->clear();
        list->addPage(*source.products());
        list->GetMoreProducts(source);
    }
    std::string line(int row) const
    {
        return grid->item(row - 1, 0)->text().toStdString() + "|" +
               grid->item(row - 1, 1)->text().toStdString();
    }

    std::unique_ptr<ProductListGrid> grid;
    std::unique_ptr<ProductList<Item>> list;
};

TEST_F(ProductListTest, aScreenOfLinesIsReadAndNoMore)
{
    PagedSource source(1000, 5);
    show(source);

    // The lines held reach past the foot of the grid, and no page beyond is read.
    EXPECT_GT(list->count(), grid->visibleRows());
    EXPECT_LE(list->count(), grid->visibleRows() + 5);
    EXPECT_EQ(source.pagesRead, list->count() / 5);
    EXPECT_EQ(line(1), "C1|Producto 1");
    EXPECT_EQ(grid->Row(), 1) << "the first line is selected";
    EXPECT_EQ(list->selected()->code, "C1");
}

TEST_F(ProductListTest, scrollingToTheEndReadsEachPageOnce)
{
    PagedSource source(200, 50);
    show(source);
    // The grid asks for more on each scroll, as the pages do.
    QObject::connect(grid.get(), &ProductListGrid::Scroll, [&] { list->GetMoreProducts(source); });
    for (int guard = 0; guard < 50 && !source.allRead(); ++guard) {
        // The scroll range follows the new lines once the view has laid them out.
        QApplication::processEvents();
        grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum());
    }

    EXPECT_EQ(list->count(), 200);
    EXPECT_EQ(source.pagesRead, 4);
    EXPECT_EQ(line(200), "C200|Producto 200");
    list->GetMoreProducts(source);
    EXPECT_EQ(source.pagesRead, 4) << "nothing is read once the source has said it is all";
}

TEST_F(ProductListTest, aTallerGridReadsWhatItCanNowShow)
{
    PagedSource source(1000, 5);
    show(source);
    const int before = list->count();
    QObject::connect(grid.get(), &ProductListGrid::Resized, [&] { list->GetMoreProducts(source); });
    grid->resize(400, 900);
    EXPECT_GT(list->count(), before);
    EXPECT_GT(list->count(), grid->visibleRows());
}

TEST_F(ProductListTest, anEmptyListKeepsItsHeadingsAndReadsNothing)
{
    PagedSource source(0, 50);
    show(source);
    EXPECT_TRUE(list->empty());
    EXPECT_EQ(grid->rowCount(), 1) << "one blank line under the headings";
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(source.pagesRead, 1);
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text(), "Descripción");
}

TEST_F(ProductListTest, aNewSearchStartsTheListAgainFromItsFirstLine)
{
    PagedSource first(30, 50);
    show(first);
    PagedSource second(2, 50);
    show(second);
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(line(2), "C2|Producto 2");
}

TEST_F(ProductListTest, twoLinesWithOneKeyAreErrorDuplicateKey)
{
    auto page = std::make_shared<Items>();
    page->add(std::make_shared<Item>(Item{"ERP-1", "a"}));
    page->add(std::make_shared<Item>(Item{"erp-1", "b"}));
    list->clear();
    try {
        list->addPage(*page);
        FAIL() << "the second line was taken";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), RuntimeErrorNumber::DuplicateKey);
    }
    EXPECT_EQ(list->count(), 1);
}

TEST_F(ProductListTest, onlyThePersonsMoveRaisesSelChange)
{
    PagedSource source(3, 50);
    int changes = 0;
    QObject::connect(grid.get(), &ProductListGrid::SelChange, [&] { ++changes; });
    show(source);
    EXPECT_EQ(changes, 0) << "the page shows its first line itself";
    QTest::keyClick(grid.get(), Qt::Key_Down);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(list->selected()->code, "C2");
}

} // namespace
