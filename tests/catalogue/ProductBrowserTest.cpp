#include "catalogue/ProductBrowser.h"

#include "ErpTest.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/SellerProduct.h"
#include "shell/AppState.h"

namespace {

constexpr const char *kSearch = "BusquedaProductosIndividual";

class ProductBrowserTest : public ErpTest
{
};

} // namespace

TEST_F(ProductBrowserTest, theSearchGoesToTheErpAsTheCallerSetIt)
{
    erp->queue(kSearch, {0, searchReply(erpProducts(1, 50)), "P-1|P-50"});
    erp->queue(kSearch, {102, searchReply(erpProducts(51, 52)), "P-51|P-52"});
    const auto browser = sellerBrowser();
    EXPECT_EQ(browser->queryType(), 1);
    EXPECT_EQ(browser->allRead(), 0);
    browser->setSearchString("taladro");
    browser->setQueryType(2);
    browser->setProductType(2);
    browser->setMinistore(ministore("300"));
    browser->StartQuery();
    EXPECT_EQ(browser->lastId(), "P-1|P-50");
    browser->GetMore();
    const auto calls = erp->callsOf(kSearch);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].position, "");
    EXPECT_EQ(calls[1].position, "P-1|P-50");
    for (const auto &call : calls) {
        EXPECT_EQ(call.text, "taladro");
        EXPECT_EQ(call.queryType, 2);
        EXPECT_EQ(call.productType, 2);
        EXPECT_EQ(call.querySize, 50);
        EXPECT_EQ(call.direction, 0);
        EXPECT_EQ(call.ministoreId, "300");
    }
}

TEST_F(ProductBrowserTest, theErpsCodeSaysByDirectionWhetherTheSearchIsOver)
{
    struct Row
    {
        const char *what;
        std::int32_t code;
        bool forward;
        std::int16_t allRead;
    };
    const Row rows[] = {
        {"an ordinary page", 0, true, 0},
        {"102 forwards is the end", 102, true, -1},
        {"102 backwards is an ordinary page", 102, false, 0},
        {"101 backwards is the start", 101, false, -1},
        {"101 forwards is an ordinary page", 101, true, 0},
        {"103 is the whole list", 103, false, -1},
        {"8002: nothing found", 8002, true, -1},
        {"8007: the first page of too broad a search is shown and ends it", 8007, true, -1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        erp->queue(kSearch, {row.code, searchReply(erpProducts(1, 3)), ""});
        ProductBrowser browser;
        browser.setForward(row.forward);
        browser.StartQuery();
        EXPECT_EQ(browser.allRead(), row.allRead);
        // The last page has products too.
        EXPECT_EQ(browser.products()->count(), 3);
        EXPECT_EQ(erp->calls.back().direction, row.forward ? 0 : 1);
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ProductBrowserTest, aFinishedSearchDoesNotAskTheErpAgain)
{
    erp->queue(kSearch, {103, searchReply(erpProducts(1, 3)), ""});
    ProductBrowser browser;
    browser.StartQuery();
    browser.GetMore();
    browser.GetMore();
    EXPECT_TRUE(browser.products()->empty());
    EXPECT_EQ(erp->callsOf(kSearch).size(), 1u);
}

TEST_F(ProductBrowserTest, aFailedSearchIsReportedAndOnlyABadCallIsFatal)
{
    struct Row
    {
        const char *what;
        std::int32_t code;
        std::string reply;
        std::string error;
        bool running;
    };
    const Row rows[] = {
        {"a code of failure", 8001, searchReply(""),
         "Error: -11001 (ProductBrowser:getMore): La función "
         "APIDovel.BusquedaProductosIndividual retornó con error 8001",
         false},
        {"a reply that does not parse", 0, "<BusquedaProductosIndividual>",
         "Error: -10500 (ProductBrowser:getMore): El XML retornado por "
         "APIDovel.BusquedaProductosIndividual está mal construido "
         "<BusquedaProductosIndividual>",
         true},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        gAppRunning = true;
        erp->queue(kSearch, {0, searchReply(erpProducts(1, 3)), ""});
        erp->queue(kSearch, {row.code, row.reply, ""});
        ProductBrowser browser;
        browser.StartQuery();
        browser.GetMore();
        EXPECT_EQ(loggedError(), row.error);
        EXPECT_EQ(gAppRunning, row.running);
        EXPECT_EQ(browser.products()->count(), 3);
    }
}

TEST_F(ProductBrowserTest, eachLineOfTheWholeCatalogueIsASellerProduct)
{
    erp->queue(kSearch, {103, searchReply(erpProducts(7, 8)), ""});
    ProductBrowser browser;
    browser.StartQuery();
    ASSERT_EQ(browser.products()->count(), 2);
    const auto product = std::dynamic_pointer_cast<SellerProduct>(browser.products()->item(2));
    ASSERT_NE(product, nullptr);
    EXPECT_EQ(product->sellerProduct(), product);
    EXPECT_EQ(product->dovelID(), "P-8");
    EXPECT_EQ(product->Description(), "Artículo 8");
    EXPECT_EQ(product->Reference(), "R8");
    EXPECT_TRUE(erp->callsOf("ObtenerDefinicionProducto").empty());
}
