// The ERP catalogue against the real ERP library, over data sets of the tests' own and the demo.

#include "CatalogueTest.h"
#include "ErpSandbox.h"
#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/SellerProduct.h"
#include "platform/connectors/ErpLibrary.h"
#include "shell/AppState.h"
#include "stores/SellerTax.h"

#include <cstdlib>
#include <optional>
#include <set>

namespace {

using Texts = std::vector<std::string>;

class ErpCatalogueIntegrationTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        setErpLibrary(nullptr);
    }
    void TearDown() override
    {
        m_sandbox.reset();
        unsetenv("ASISTENTE_ERP_LIBRARY");
        CatalogueTest::TearDown();
    }

    /// Points the library at a data set of the test's own: a hundred and twenty products in
    /// one category beside two subcategories, and three products elsewhere.
    void givenCatalogue(const std::string &rootAttributes = {})
    {
        m_sandbox.emplace();
        m_sandbox->writeData(
            "<Categoria id='C-BIG' nombre='Grande'><Categoria id='C-SUB1' nombre='Sub uno'/>"
            "<Categoria id='C-SUB2' nombre='Sub dos'/>" +
                ErpSandbox::products(120) + "</Categoria><Categoria id='C-CAFE' nombre='Café'>" +
                ErpSandbox::products(3, "K-", "Cafetera") + "</Categoria>",
            {}, rootAttributes);
    }

    /// Each page's product codes, from StartQuery to the end of the walk.
    template <class Source> static std::vector<Texts> pages(Source &source, int most = 10)
    {
        std::vector<Texts> read{codes(source)};
        while (!ended(source) && --most > 0) {
            source.GetMore();
            read.push_back(codes(source));
        }
        return read;
    }

    template <class Source> static Texts codes(Source &source)
    {
        Texts read;
        for (const auto &line : *source.products())
            read.push_back(line->sellerProduct()->dovelID());
        return read;
    }
    static bool ended(DovelCategory &category) { return category.allRead() == "True"; }
    static bool ended(ProductBrowser &browser) { return browser.allRead() != 0; }

    static std::vector<std::size_t> sizes(const std::vector<Texts> &read)
    {
        std::vector<std::size_t> result;
        for (const Texts &page : read)
            result.push_back(page.size());
        return result;
    }

private:
    std::optional<ErpSandbox> m_sandbox;
};

} // namespace

TEST_F(ErpCatalogueIntegrationTest, aCategoryIsWalkedInPagesOfFiftyUntilTheErpSays6007)
{
    givenCatalogue();
    DovelCategory category;
    category.setId("C-BIG");
    category.StartQuery();
    const std::vector<Texts> read = pages(category);
    EXPECT_EQ(sizes(read), (std::vector<std::size_t>{50, 50, 20, 0}));
    EXPECT_EQ(read[0].front(), "P-0001");
    EXPECT_EQ(read[1].front(), "P-0051");
    EXPECT_EQ(read[2].back(), "P-0120");
    ASSERT_EQ(category.children()->count(), 2);
    EXPECT_EQ(category.children()->item(2)->name(), "Sub dos");
    EXPECT_EQ(category.name(), "Grande");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ErpCatalogueIntegrationTest, theRootHoldsTheTopCategories)
{
    givenCatalogue();
    const auto root = sellerRootCategory();
    root->StartQuery();
    ASSERT_EQ(root->children()->count(), 2);
    EXPECT_EQ(root->children()->item(1)->id(), "C-BIG");
    EXPECT_EQ(root->children()->item(2)->name(), "Café");
    EXPECT_EQ(root->name(), "Catálogo general");
    EXPECT_EQ(root->allRead(), "True");
}

TEST_F(ErpCatalogueIntegrationTest, aSearchEndsWhereTheErpSaysByDirection)
{
    givenCatalogue();
    struct Row
    {
        const char *what;
        const char *text;
        bool forward;
        std::vector<std::size_t> pages;
    };
    const Row rows[] = {
        {"forwards through a hundred and twenty, ending on 102", "Artículo", true, {50, 50, 20}},
        {"backwards, ending on 101", "Artículo", false, {50, 50, 20}},
        {"three that fit one page: 103", "Cafetera", true, {3}},
        {"nothing found: 8002", "Tostadora", true, {0}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const auto browser = sellerBrowser();
        browser->setQueryType(2);
        browser->setSearchString(row.text);
        browser->setForward(row.forward);
        browser->StartQuery();
        EXPECT_EQ(sizes(pages(*browser)), row.pages);
        browser->GetMore();
        EXPECT_TRUE(browser->products()->empty());
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ErpCatalogueIntegrationTest, aSearchTooBroadShowsItsFirstPageAndEnds)
{
    givenCatalogue("limiteBusqueda='100'");
    ProductBrowser browser;
    browser.setQueryType(2);
    browser.setSearchString("Artículo");
    browser.StartQuery();
    EXPECT_EQ(browser.products()->count(), 50);
    EXPECT_EQ(browser.allRead(), -1);
}

TEST_F(ErpCatalogueIntegrationTest, aProductsPricesAndTaxesComeFromTheErpWhenAskedFor)
{
    givenCatalogue();
    ProductBrowser browser;
    browser.setSearchString("K-0002");
    browser.StartQuery();
    ASSERT_EQ(browser.products()->count(), 1);
    const auto product = browser.products()->item(1)->sellerProduct();
    EXPECT_EQ(product->Description(), "Cafetera 2");
    EXPECT_EQ(product->Reference(), "R2");
    EXPECT_EQ(product->price1(), "10.00");
    EXPECT_EQ(product->price2(), "9.00");
    EXPECT_EQ(product->price3(), "8.00");
    ASSERT_EQ(product->taxes()->count(), 1);
    EXPECT_EQ(product->taxes()->item(1)->id(), "IVA");
    EXPECT_EQ(product->taxes()->item(1)->quantity(), "16");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ErpCatalogueIntegrationTest, anUnknownCategoryIsAFailedCallAndFatal)
{
    givenCatalogue();
    DovelCategory category;
    category.setId("C-NONE");
    category.StartQuery();
    EXPECT_EQ(loggedError(), "Error: -11001 (DovelCategory:getMore): La función "
                             "APIDovel.ObtenerContenidoCategoria retornó con error 6001");
    EXPECT_FALSE(gAppRunning);
}

TEST_F(ErpCatalogueIntegrationTest, theDemoErpHasSeveralLevelsAndHundredsOfProducts)
{
    // Every category of the demo seller's tree, walked to its end as a page would.
    std::vector<std::shared_ptr<DovelCategory>> pending{sellerRootCategory()};
    std::set<std::string> products;
    int deepest = 0;
    std::vector<int> depths{0};
    while (!pending.empty()) {
        const auto category = pending.back();
        const int depth = depths.back();
        pending.pop_back();
        depths.pop_back();
        deepest = std::max(deepest, depth);
        category->StartQuery();
        for (const Texts &page : pages(*category, 100))
            products.insert(page.begin(), page.end());
        for (const auto &child : *category->children()) {
            pending.push_back(child);
            depths.push_back(depth + 1);
        }
    }
    EXPECT_GE(deepest, 3);
    EXPECT_GE(products.size(), 300u);
    EXPECT_TRUE(loggedErrors().empty());
}
