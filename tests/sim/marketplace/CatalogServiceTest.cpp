#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"

#include <gtest/gtest.h>
#include <set>

namespace {

class DemoMarketplace : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_FALSE(sim.url().empty()) << sim.error(); }

    MarketplaceReply page(const std::string &category, int number, int size = 50)
    {
        return soap.call("GetCategoryContent", {{"CategoryID", category},
                                                {"PageNumber", std::to_string(number)},
                                                {"PageSize", std::to_string(size)}});
    }

    FeriaSimProcess sim{FERIA_SIM_DEMO_DATA};
    SoapTestClient soap{sim.url()};
};

class SmallMarketplaceTest : public ::testing::Test
{
protected:
    void start(const std::string &faults)
    {
        sim = FeriaSimProcess::withData(smallMarketplace(faults));
        ASSERT_FALSE(sim->url().empty()) << sim->error();
        soap = std::make_unique<SoapTestClient>(sim->url());
    }

    std::unique_ptr<FeriaSimProcess> sim;
    std::unique_ptr<SoapTestClient> soap;
};

} // namespace

TEST_F(DemoMarketplace, sellerInformationListsTheThreeMinistoresWithWhatEachPublishes)
{
    const MarketplaceReply reply = soap.call("GetSellerInformation", {{"SellerID", "V1042"}});
    ASSERT_TRUE(reply.wellFormed) << reply.text;
    EXPECT_EQ(reply.root().name(), std::string("GetSellerInformation"));
    EXPECT_EQ(reply.code(), 0);
    EXPECT_EQ(reply.values("//Store/StoreID"),
              (std::vector<std::string>{"100", "200", "300"}));
    EXPECT_EQ(reply.values("//Store/NumberOfProducts"), (std::vector<std::string>{"3", "1", "0"}));
    EXPECT_GT(reply.values("//Store[StoreID='200']/Name")[0].size(), 40u);
    pugi::xml_node emptyDescription =
        reply.select("//Store[StoreID='300']/Description").first().node();
    ASSERT_TRUE(emptyDescription);
    EXPECT_FALSE(emptyDescription.first_child());

    EXPECT_EQ(soap.call("GetSellerInformation", {{"SellerID", "V9999"}}).code(), -8013);
}

TEST_F(DemoMarketplace, rootCategoryHasTheEmptyIdAndTheTopCategoriesWithTheirDescriptions)
{
    const MarketplaceReply reply = page("", 1);
    ASSERT_EQ(reply.code(), 0) << reply.text;
    EXPECT_EQ(reply.values("//CurrentCategory/@id"), std::vector<std::string>{""});
    EXPECT_EQ(
        reply.values("//Categories/Category/@id"),
        (std::vector<std::string>{"ZC-100", "ZC-200", "ZC-300", "ZC-400", "ZC-500", "ZC-600"}));
    EXPECT_EQ(reply.select("//Category[not(@name) or not(Field[@fieldID='Description'])]").size(),
              0u);
    EXPECT_EQ(reply.select("//Product").size(), 0u);
}

TEST_F(DemoMarketplace, pagesOfACategoryRunToTheEndAsTheReaderWalksThem)
{
    struct Walk
    {
        const char *category;
        std::vector<size_t> pageSizes;
    };
    // A walk ends after the first page shorter than the query size, as the reader stops there.
    const std::vector<Walk> table{
        {"ZC-310", {50, 50, 0}},  // exactly one hundred T-shirts need a third, empty page
        {"ZC-510", {50, 50, 30}}, // books
        {"ZC-600", {0}},          // a category with nothing in it
        {"ZC-1321", {6}},         // fourth level of the tree
    };
    for (const Walk &walk : table) {
        SCOPED_TRACE(walk.category);
        std::vector<size_t> sizes;
        std::set<std::string> seen;
        for (int number = 1;; ++number) {
            const MarketplaceReply reply = page(walk.category, number);
            ASSERT_EQ(reply.code(), 0) << reply.text;
            EXPECT_EQ(reply.values("//CurrentCategory/@id")[0], walk.category);
            const auto ids = reply.values("//Products/Product/@id");
            sizes.push_back(ids.size());
            seen.insert(ids.begin(), ids.end());
            EXPECT_EQ(reply
                          .select("//Product[not(Field[@fieldID='Name']/text()) or "
                                  "not(Field[@fieldID='Description']/text())]")
                          .size(),
                      0u);
            if (ids.size() < 50) {
                break;
            }
        }
        EXPECT_EQ(sizes, walk.pageSizes);
        size_t total = 0;
        for (size_t size : sizes) {
            total += size;
        }
        EXPECT_EQ(seen.size(), total) << "a product came twice";
    }
}

TEST_F(DemoMarketplace, requestsThatCannotBeServedAnswerACodeAndTheReason)
{
    struct Case
    {
        const char *what;
        MarketplaceReply reply;
        int code;
    };
    const std::vector<Case> table{
        {"an unknown category", page("ZC-999", 1), -8010},
        {"page zero", page("ZC-310", 0), -8500},
        {"a page size of zero", page("ZC-310", 1, 0), -8500},
        {"a page number that is no number",
         soap.call("GetCategoryContent",
                   {{"CategoryID", "ZC-310"}, {"PageNumber", "uno"}, {"PageSize", "50"}}),
         -8500},
        {"an unknown product",
         soap.call("GetProductInformation", {{"ProductID", "ZP-99999"}, {"StoreID", "100"}}),
         -8011},
        {"an unknown store",
         soap.call("GetProductInformation", {{"ProductID", "ZP-00001"}, {"StoreID", "MT-999"}}),
         -8012},
        {"definitions of an unknown category",
         soap.call("GetProductDefinition", {{"CategoryID", "ZC-999"}}), -8010},
        {"an argument missing", soap.call("GetProductDefinition", {}), -8500},
        {"not XML at all", soap.post("StoreSoapPort", "garbage"), -8500},
        {"an empty body", soap.post("StoreSoapPort", ""), -8500},
        {"XML that is no envelope", soap.post("StoreSoapPort", "<hola/>"), -8500},
        {"an envelope without body",
         soap.post("StoreSoapPort",
                   "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'/>"),
         -8500},
        {"an unknown operation", soap.call("BorrarTodo", {}), -8502},
        {"an operation on the wrong port",
         soap.post("StoreSoapPort",
                   SoapTestClient::envelope("GetProductDefinition", {{"CategoryID", "ZC-100"}})),
         -8502},
    };
    for (const Case &row : table) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.reply.httpStatus, 200);
        ASSERT_TRUE(row.reply.wellFormed) << row.reply.envelope;
        EXPECT_EQ(row.reply.code(), row.code);
        EXPECT_FALSE(row.reply.description().empty());
    }
    EXPECT_EQ(page("ZC-310", 1).code(), 0) << "the server no longer answers";
}

TEST_F(DemoMarketplace, envelopesOfEveryStyleAreUnderstood)
{
    const std::string soapNs = "xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'";
    struct Case
    {
        const char *style;
        std::string body;
        std::string action;
    };
    const std::vector<Case> table{
        {"rpc/encoded with typed parts and a reference",
         "<s:Envelope " + soapNs +
             " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'"
             " xmlns:xsd='http://www.w3.org/2001/XMLSchema'><s:Body>"
             "<m:GetCategoryContent xmlns:m='urn:nubalia:zvtsorvek'>"
             "<CategoryID href='#id1'/><PageNumber xsi:type='xsd:short'>1</PageNumber>"
             "<PageSize xsi:type='xsd:short'>7</PageSize></m:GetCategoryContent>"
             "<multiRef id='id1' xsi:type='xsd:string'>ZC-510</multiRef></s:Body></s:Envelope>",
         ""},
        {"document/literal with bare parts and the operation in SOAPAction",
         "<s:Envelope " + soapNs +
             "><s:Body><CategoryID>ZC-510</CategoryID>"
             "<PageNumber>1</PageNumber><PageSize>7</PageSize>"
             "</s:Body></s:Envelope>",
         "\"urn:nubalia:zvtsorvek#GetCategoryContent\""},
        {"qualified parts under a Request wrapper",
         "<s:Envelope " + soapNs +
             "><s:Body><z:GetCategoryContentRequest xmlns:z='urn:nubalia:zvtsorvek'>"
             "<z:categoryid>ZC-510</z:categoryid><z:pagenumber>1</z:pagenumber>"
             "<z:pagesize>7</z:pagesize></z:GetCategoryContentRequest></s:Body></s:Envelope>",
         ""},
        {"parts named otherwise, taken by position",
         "<s:Envelope " + soapNs +
             "><s:Body><GetCategoryContent><a>ZC-510</a><b>1</b><c>7</c>"
             "</GetCategoryContent></s:Body></s:Envelope>",
         ""},
    };
    for (const Case &row : table) {
        SCOPED_TRACE(row.style);
        const MarketplaceReply reply = soap.post("CatalogInfoSoapPort", row.body, row.action);
        ASSERT_EQ(reply.code(), 0) << reply.text;
        EXPECT_EQ(reply.values("//CurrentCategory/@id")[0], "ZC-510");
        EXPECT_EQ(reply.select("//Products/Product").size(), 7u);
    }
}

TEST_F(DemoMarketplace, definitionsNameOnlyKnownPropertiesAndCoverEveryDataTypeAndThePriceBlock)
{
    std::set<std::string> dataTypes;
    for (const char *category : {"ZC-100", "ZC-200", "ZC-300", "ZC-400", "ZC-500"}) {
        SCOPED_TRACE(category);
        const MarketplaceReply reply =
            soap.call("GetProductDefinition", {{"CategoryID", category}});
        ASSERT_EQ(reply.code(), 0) << reply.text;
        ASSERT_EQ(reply.select("//PropertiesDefinition").size(), 1u);
        ASSERT_GT(reply.select("//Definition[@name]").size(), 0u);
        for (const std::string &id : reply.values("//Definition//Property/@id")) {
            EXPECT_EQ(
                reply.select(("//PropertiesDefinition/Property[@id='" + id + "']").c_str()).size(),
                1u)
                << id;
        }
        for (const char *price : {"Cy_List_Price", "PromoPrice", "WholeSalePrice",
                                  "WholeSaleQuantity", "Group1Price", "Group5Quantity"}) {
            const std::string missing =
                std::string("//Definition[not(Properties/Property[@id='") + price + "'])]";
            EXPECT_EQ(reply.select(missing.c_str()).size(), 0u) << price;
        }
        EXPECT_EQ(reply
                      .select("//Property[@dataType='Enumeration'][not(PropertyValues/"
                              "@displayName)]")
                      .size(),
                  0u);
        for (const std::string &type : reply.values("//PropertiesDefinition/Property/@dataType")) {
            dataTypes.insert(type);
        }
    }
    EXPECT_EQ(dataTypes, (std::set<std::string>{"String", "Integer", "Biginteger", "Float",
                                                "Double", "Currency", "Boolean", "Datetime",
                                                "FilePath", "Enumeration"}));
}

TEST_F(DemoMarketplace, productInformationGroupsItsFieldsAndGivesAStoresOwnValues)
{
    // A T-shirt: characteristic fields, the price block, and Color and Talla as variants.
    const MarketplaceReply shirt =
        soap.call("GetProductInformation", {{"ProductID", "ZP-00200"}, {"StoreID", "100"}});
    ASSERT_EQ(shirt.code(), 0) << shirt.text;
    EXPECT_EQ(shirt.values("//Product/@Definition"), std::vector<std::string>{"pdVariantProduct"});
    for (const std::string &id : shirt.values("//Product/Field/@fieldID")) {
        EXPECT_EQ(
            shirt.select(("//PropertiesDefinition/Property[@id='" + id + "']").c_str()).size(), 1u)
            << id;
    }
    EXPECT_EQ(shirt.values("//Product/VariantProperties/Field/@fieldID"),
              (std::vector<std::string>{"VariantID", "Color", "Talla", "Existencia"}));
    EXPECT_EQ(shirt.values("//Property[@id='Color']/@type"), std::vector<std::string>{});
    EXPECT_EQ(shirt.values("//Property[@id='Existencia']/@type"), std::vector<std::string>{"NC"});
    EXPECT_EQ(shirt.values("//Product/Field[@fieldID='ERPID']").size(), 1u);

    // An appliance 100 publishes: its price there, none in another store.
    const auto price = [this](const char *store) {
        return soap.call("GetProductInformation", {{"ProductID", "ZP-00150"}, {"StoreID", store}})
            .values("//Product/Field[@fieldID='Cy_List_Price']")[0];
    };
    EXPECT_EQ(price("100"), "34990.00");
    EXPECT_EQ(price("300"), "");
}

TEST_F(DemoMarketplace, requestsForNewCategoriesAndProductsAreRecordedAsReceived)
{
    const std::string product =
        "<?xml version='1.0' encoding='ISO-8859-1'?><RequestNewProduct>"
        "<Product Definition='pdLibro'><Field fieldID='Name'><![CDATA[Poemas del salar]]></Field>"
        "</Product><ImageType>JPG</ImageType><Image xmlns:dt='urn:schemas-microsoft-com:datatypes'"
        " dt:dt='bin.base64'>R0lGODlh</Image></RequestNewProduct>";
    const std::string definition = "<RequestNewProductDef><StoreID>100</StoreID>"
                                   "<Name>Hamaca paraguaya</Name><Fields/></RequestNewProductDef>";
    struct Case
    {
        const char *what;
        MarketplaceReply reply;
        int code;
    };
    const std::vector<Case> table{
        {"a new category",
         soap.call("RequestNewCategory",
                   {{"StoreID", "100"}, {"CategoryID", "ZC-500"}, {"CategoryName", "Cómics"}}),
         0},
        {"a product from a template",
         soap.call("RequestNewProduct",
                   {{"StoreID", "100"}, {"CategoryID", "ZC-510"}, {"RequestXML", product}}),
         0},
        {"a product of a new kind, under a category not approved yet",
         soap.call("RequestNewProductDef",
                   {{"StoreID", "100"}, {"CategoryID", ""}, {"RequestXML", definition}}),
         0},
        {"a product from an unknown template",
         soap.call("RequestNewProduct",
                   {{"StoreID", "100"},
                    {"CategoryID", "ZC-510"},
                    {"RequestXML", "<RequestNewProduct><Product Definition='pdNada'/>"
                                   "</RequestNewProduct>"}}),
         -8505},
        {"a request document that does not parse",
         soap.call("RequestNewProductDef",
                   {{"StoreID", "100"}, {"CategoryID", "ZC-510"}, {"RequestXML", "<Req"}}),
         -8500},
        {"a category without name",
         soap.call("RequestNewCategory",
                   {{"StoreID", "100"}, {"CategoryID", "ZC-500"}, {"CategoryName", ""}}),
         -8500},
        {"a request for a store that does not exist",
         soap.call("RequestNewCategory",
                   {{"StoreID", "MT-999"}, {"CategoryID", "ZC-500"}, {"CategoryName", "X"}}),
         -8012},
    };
    for (const Case &row : table) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.reply.code(), row.code) << row.reply.text;
        EXPECT_FALSE(row.reply.description().empty());
    }
    pugi::xml_document state;
    ASSERT_TRUE(state.load_string(soap.get("/sim/state").c_str()));
    std::vector<std::string> received;
    for (pugi::xpath_node request : state.select_nodes("//Requests/Request/@operation")) {
        received.emplace_back(request.attribute().value());
    }
    EXPECT_EQ(received, (std::vector<std::string>{"RequestNewCategory", "RequestNewProduct",
                                                  "RequestNewProductDef"}));
    EXPECT_NE(
        std::string(
            state.select_node("//Request[@operation='RequestNewProduct']").node().text().get())
            .find("Poemas del salar"),
        std::string::npos);
}

TEST_F(SmallMarketplaceTest, injectedFaultsShapeTheReplyOfTheCallTheyName)
{
    start("<Fault operation='GetCategoryContent' category='ZC-1' call='2' code='-8010'"
          "       description='Categoría en mantenimiento'/>"
          "<Fault operation='GetProductDefinition' effect='malformed'/>"
          "<Fault operation='GetSellerInformation' effect='overlong' size='80000'/>"
          "<Fault operation='GetProductInformation' product='ZP-2' effect='cut'/>"
          "<Fault operation='GetProductInformation' product='ZP-3' delayMs='50'/>");
    const auto content = [this](const char *category) {
        return soap->call("GetCategoryContent",
                          {{"CategoryID", category}, {"PageNumber", "1"}, {"PageSize", "50"}});
    };
    EXPECT_EQ(content("ZC-1").code(), 0) << "only the second call is faulty";
    const MarketplaceReply second = content("ZC-1");
    EXPECT_EQ(second.code(), -8010);
    EXPECT_EQ(second.description(), "Categoría en mantenimiento");
    EXPECT_EQ(content("ZC-1").code(), 0);

    const MarketplaceReply malformed =
        soap->call("GetProductDefinition", {{"CategoryID", "ZC-1"}});
    EXPECT_EQ(malformed.httpStatus, 200);
    EXPECT_FALSE(malformed.wellFormed);
    EXPECT_FALSE(malformed.text.empty());

    const MarketplaceReply overlong = soap->call("GetSellerInformation", {{"SellerID", "V1042"}});
    EXPECT_TRUE(overlong.wellFormed);
    EXPECT_GE(overlong.text.size(), 80000u);

    EXPECT_EQ(
        soap->call("GetProductInformation", {{"ProductID", "ZP-2"}, {"StoreID", ""}}).httpStatus,
        0)
        << "the connection should have dropped";
    EXPECT_EQ(soap->call("GetProductInformation", {{"ProductID", "ZP-3"}, {"StoreID", ""}}).code(),
              0);
}
