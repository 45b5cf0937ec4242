#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

class CatalogServiceTest : public ::testing::Test
{
protected:
    void start(const std::string &faults = {})
    {
        sim = FeriaSimProcess::withData(smallMarketplace(faults));
        ASSERT_FALSE(sim->url().empty()) << sim->error();
        soap = std::make_unique<SoapTestClient>(sim->url());
    }
    MarketplaceReply page(const std::string &category, const std::string &number,
                          const std::string &size = "50")
    {
        return soap->call("GetCategoryContent",
                          {{"CategoryID", category}, {"PageNumber", number}, {"PageSize", size}});
    }

    std::unique_ptr<FeriaSimProcess> sim;
    std::unique_ptr<SoapTestClient> soap;
};

} // namespace

TEST_F(CatalogServiceTest, requestsThatCannotBeServedAnswerACodeAndTheReason)
{
    start();
    const auto request = [this](const char *operation, const char *category,
                                const std::string &xml) {
        return soap->call(operation,
                          {{"StoreID", "100"}, {"CategoryID", category}, {"RequestXML", xml}});
    };
    const std::tuple<const char *, MarketplaceReply, int> table[] = {
        {"an unknown category", page("ZC-999", "1"), -8010},
        {"page zero", page("ZC-1", "0"), -8500},
        {"a page size of zero", page("ZC-1", "1", "0"), -8500},
        {"a page number that is no number", page("ZC-1", "uno"), -8500},
        {"an unknown seller", soap->call("GetSellerInformation", {{"SellerID", "V9999"}}), -8013},
        {"an unknown product",
         soap->call("GetProductInformation", {{"ProductID", "ZP-99"}, {"StoreID", "100"}}), -8011},
        {"an unknown store",
         soap->call("GetProductInformation", {{"ProductID", "ZP-1"}, {"StoreID", "MT-999"}}),
         -8012},
        {"definitions of an unknown category",
         soap->call("GetProductDefinition", {{"CategoryID", "ZC-999"}}), -8010},
        {"an argument missing", soap->call("GetProductDefinition", {}), -8500},
        {"not XML at all", soap->post("StoreSoapPort", "garbage"), -8500},
        {"XML that is no envelope", soap->post("StoreSoapPort", "<hola/>"), -8500},
        {"an envelope without body",
         soap->post("StoreSoapPort",
                    "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'/>"),
         -8500},
        {"an unknown operation", soap->call("BorrarTodo", {}), -8502},
        {"an operation on the wrong port",
         soap->post("StoreSoapPort",
                    SoapTestClient::envelope("GetProductDefinition", {{"CategoryID", "ZC-1"}})),
         -8502},
        {"a category without name",
         soap->call("RequestNewCategory",
                    {{"StoreID", "100"}, {"CategoryID", "ZC-1"}, {"CategoryName", " "}}),
         -8500},
        {"a product from an unknown template",
         request("RequestNewProduct", "ZC-1",
                 "<RequestNewProduct><Product Definition='pdNada'/></RequestNewProduct>"),
         -8505},
        {"a request document that does not parse", request("RequestNewProductDef", "ZC-1", "<Req"),
         -8500},
    };
    for (const auto &[what, reply, code] : table) {
        SCOPED_TRACE(what);
        EXPECT_EQ(reply.httpStatus, 200);
        ASSERT_TRUE(reply.wellFormed) << reply.text;
        EXPECT_EQ(reply.code(), code);
        EXPECT_FALSE(reply.description().empty());
    }
    EXPECT_EQ(page("ZC-1", "1").code(), 0) << "the server no longer answers";
    EXPECT_EQ(soap->get("/sim/state").find("<Request "), std::string::npos)
        << "a refused request was recorded";
}

TEST_F(CatalogServiceTest, injectedFaultsShapeTheReplyOfTheCallTheyName)
{
    start("<Fault operation='GetCategoryContent' category='ZC-1' call='2' code='-8010'"
          "       description='Categoría en mantenimiento'/>"
          "<Fault operation='GetProductDefinition' effect='malformed'/>"
          "<Fault operation='GetSellerInformation' effect='overlong' size='80000'/>"
          "<Fault operation='GetProductInformation' product='ZP-2' effect='cut'/>"
          "<Fault operation='GetProductInformation' product='ZP-3' delayMs='50'/>");
    EXPECT_EQ(page("ZC-1", "1").code(), 0) << "only the second call is faulty";
    const MarketplaceReply second = page("ZC-1", "1");
    EXPECT_EQ(second.code(), -8010);
    EXPECT_EQ(second.description(), "Categoría en mantenimiento");
    EXPECT_EQ(page("ZC-1", "1").code(), 0);

    const MarketplaceReply malformed = soap->call("GetProductDefinition", {{"CategoryID", "ZC-1"}});
    EXPECT_EQ(malformed.httpStatus, 200);
    EXPECT_FALSE(malformed.wellFormed);
    EXPECT_FALSE(malformed.text.empty());

    const MarketplaceReply overlong = soap->call("GetSellerInformation", {{"SellerID", "V1042"}});
    EXPECT_TRUE(overlong.wellFormed);
    EXPECT_GE(overlong.text.size(), 80000u);

    const auto information = [this](const char *product) {
        return soap->call("GetProductInformation", {{"ProductID", product}, {"StoreID", ""}});
    };
    EXPECT_EQ(information("ZP-2").httpStatus, 0) << "the connection should have dropped";
    EXPECT_EQ(information("ZP-3").code(), 0);
}
