// The marketplace's category tree against the marketplace simulator, over a small catalogue
// of the test's own.

#include "SearchEditorsTest.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "editors/ZorvantaCategoryBrowser.h"
#include "marketplace/MarketplaceData.h"
#include "shell/AppState.h"

#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string product(const std::string &id, const std::string &name)
{
    return "<Product id='" + id + "'><Field fieldID='Name'>" + name +
           "</Field><Field fieldID='Description'>" + name + " para el hogar</Field></Product>";
}

// Two siblings share a description; Cocina has a level below it; Jardín is a leaf.
const std::string kMarketplace =
    "<Marketplace><Sellers/><Catalog name='Feria'><Description>Todas las categorías</Description>"
    "<Category id='ZC-1' name='Casa'><Description>Hogar y jardín</Description>" +
    product("ZP-1", "Sartén") +
    "<Category id='ZC-11' name='Cocina'><Description>Cocina</Description>"
    "<Category id='ZC-111' name='Ollas'><Description>Ollas</Description></Category>"
    "</Category></Category>"
    "<Category id='ZC-2' name='Jardin'><Description>Hogar y jardín</Description></Category>"
    "</Catalog></Marketplace>";

class ZorvantaCategoryBrowserTest : public SearchEditorsTest
{
protected:
    void SetUp() override
    {
        SearchEditorsTest::SetUp();
        startMarketplace(MarketplaceData::fromText(kMarketplace));
        browser = std::make_unique<ZorvantaCategoryBrowser>();
        browser->resize(300, 300);
        browser->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(browser.get()));
        changed = std::make_unique<QSignalSpy>(browser.get(), &ZorvantaCategoryBrowser::Changed);
    }
    /// Reset, and the user opens the root: a visit of the root again.
    void resetAndOpenRoot()
    {
        browser->Reset();
        tree().expandItem(tree().topLevelItem(0));
    }
    void TearDown() override
    {
        changed.reset();
        browser.reset();
        SearchEditorsTest::TearDown();
    }

    QTreeWidget &tree() const { return *browser->findChild<QTreeWidget *>("TreeView1"); }
    std::string currentId() const
    {
        return browser->currentCategory() ? browser->currentCategory()->id() : "(none)";
    }
    Texts productIds()
    {
        Texts ids;
        if (const auto products = browser->products())
            for (const auto &product : *products)
                ids.push_back(product->id());
        return ids;
    }

    std::unique_ptr<ZorvantaCategoryBrowser> browser;
    std::unique_ptr<QSignalSpy> changed;
};

TEST_F(ZorvantaCategoryBrowserTest, resetDrawsTheRootAndItsChildrenByDescription)
{
    browser->Reset();
    // Only the id must be unique: two siblings may read the same.
    EXPECT_THAT(treeText(tree()),
                ElementsAre("Todas las categorías", "  Hogar y jardín", "  Hogar y jardín"));
    EXPECT_EQ(tree().currentItem(), tree().topLevelItem(0));
    EXPECT_EQ(currentId(), "");
    EXPECT_EQ(changed->count(), 1);
    EXPECT_THAT(productIds(), IsEmpty());
    EXPECT_TRUE(browser->allRead());
}

TEST_F(ZorvantaCategoryBrowserTest, eachVisitDrawsOneMoreLevelOnce)
{
    resetAndOpenRoot();
    QTreeWidgetItem *home = tree().topLevelItem(0)->child(0);
    click(tree(), home);
    EXPECT_EQ(currentId(), "ZC-1");
    EXPECT_THAT(productIds(), ElementsAre("ZP-1"));
    click(tree(), home);
    EXPECT_THAT(treeText(tree()), ElementsAre("Todas las categorías", "  Hogar y jardín",
                                              "    Cocina", "  Hogar y jardín"));
    tree().expandItem(home);
    click(tree(), node(tree(), "Cocina"));
    EXPECT_THAT(treeText(tree()), ElementsAre("Todas las categorías", "  Hogar y jardín",
                                              "    Cocina", "      Ollas", "  Hogar y jardín"));
    // Reset, each expansion and each click.
    EXPECT_EQ(changed->count(), 6);
}

TEST_F(ZorvantaCategoryBrowserTest, aLeafStillRaisesChanged)
{
    resetAndOpenRoot();
    click(tree(), tree().topLevelItem(0)->child(1));
    EXPECT_EQ(changed->count(), 3);
    EXPECT_EQ(currentId(), "ZC-2");
    EXPECT_EQ(tree().topLevelItem(0)->child(1)->childCount(), 0);
    EXPECT_THAT(productIds(), IsEmpty());
}

TEST_F(ZorvantaCategoryBrowserTest, resetAsksFromTheRootAgain)
{
    resetAndOpenRoot();
    click(tree(), tree().topLevelItem(0)->child(0));
    EXPECT_EQ(treeText(tree()).size(), 4u);
    changed->clear();
    browser->Reset();
    EXPECT_THAT(treeText(tree()),
                ElementsAre("Todas las categorías", "  Hogar y jardín", "  Hogar y jardín"));
    EXPECT_EQ(tree().currentItem(), tree().topLevelItem(0));
    EXPECT_EQ(currentId(), "");
    EXPECT_EQ(changed->count(), 1);
}

TEST_F(ZorvantaCategoryBrowserTest, readingTheProductsMakesTheSelectedCategoryCurrent)
{
    resetAndOpenRoot();
    click(tree(), tree().topLevelItem(0)->child(1));
    // Selected without a visit: the next read follows the selection.
    tree().setCurrentItem(tree().topLevelItem(0)->child(0));
    EXPECT_EQ(currentId(), "ZC-2");
    EXPECT_THAT(productIds(), IsEmpty());
    EXPECT_EQ(currentId(), "ZC-1");
}

TEST_F(ZorvantaCategoryBrowserTest, readingBeforeTheFirstResetIsReported)
{
    EXPECT_EQ(browser->products(), nullptr);
    EXPECT_THAT(loggedErrors(),
                ElementsAre(testing::StartsWith(
                    "Error: 91 (ZorvantaCategoryBrowser:products Property Get): ")));
}

} // namespace
