#include "CatalogueTest.h"
#include "FakeConnectors.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"
#include "catalogue/ZorvantaValue.h"
#include "gateways/CommerceServer.h"
#include "marketplace/ServiceContract.h"
#include "marketplace/SoapMessage.h"
#include "marketplace/WsdlDocument.h"
#include "platform/xml/XmlDocument.h"
#include "shell/Constants.h"
#include "stores/Seller.h"

#include <deque>
#include <httplib.h>
#include <map>
#include <optional>
#include <thread>

namespace {

std::string reply(const std::string &operation, const std::string &content = {})
{
    return "<" + operation + "><RESULT><RETURNCODE>0</RETURNCODE></RESULT>" + content + "</" +
           operation + ">";
}

// The marketplace's service on loopback, described by the real service's WSDL: each call gets
// the next document queued for its operation (a bare success when none is) and is recorded.
class CannedMarketplace
{
public:
    CannedMarketplace()
    {
        const int port = m_server.bind_to_any_port("127.0.0.1");
        url = "http://127.0.0.1:" + std::to_string(port);
        m_server.set_tcp_nodelay(true);
        m_server.Get(std::string(ServiceContract::kWsdlPath),
                     [this](const httplib::Request &, httplib::Response &response) {
                         response.set_content(WsdlDocument::text(url), "text/xml");
                     });
        for (std::string_view path : ServiceContract::ports())
            m_server.Post(ServiceContract::portPath(path),
                          [this](const httplib::Request &request, httplib::Response &response) {
                              answer(request, response);
                          });
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running())
            std::this_thread::yield();
    }
    ~CannedMarketplace()
    {
        m_server.stop();
        m_thread.join();
    }
    void queue(const std::string &operation, std::string document)
    {
        const std::lock_guard lock(m_mutex);
        m_documents[operation].push_back(std::move(document));
    }
    /// The arguments of each call of `operation`, in the order the calls came.
    std::vector<Texts> callsOf(const std::string &operation)
    {
        const std::lock_guard lock(m_mutex);
        return m_calls[operation];
    }

    std::string url;

private:
    void answer(const httplib::Request &request, httplib::Response &response)
    {
        const auto message =
            SoapMessage::parse(request.body, request.get_header_value("SOAPAction"));
        const std::string operation = message.operation();
        Texts arguments;
        for (std::size_t i = 0; i < ServiceContract::find(operation)->parts.size(); ++i)
            arguments.push_back(message.argument("", i).value_or(""));
        const std::lock_guard lock(m_mutex);
        m_calls[operation].push_back(arguments);
        std::deque<std::string> &queued = m_documents[operation];
        const std::string document = queued.empty() ? reply(operation) : queued.front();
        if (!queued.empty())
            queued.pop_front();
        response.set_content(SoapMessage::response(operation, document), "text/xml");
    }

    httplib::Server m_server;
    std::thread m_thread;
    std::mutex m_mutex;
    std::map<std::string, std::deque<std::string>> m_documents;
    std::map<std::string, std::vector<Texts>> m_calls;
};

const char *const kDefinitions =
    "<PropertiesDefinition>"
    "<Property name='N' id='Name' dataType='String' required='yes' readOnly='yes'/>"
    "<Property name='C' id='Color' dataType='String' required='yes' readOnly='no'/>"
    "<Property name='T' id='Talla' dataType='String' required='yes' readOnly='no'/>"
    "<Property name='P' id='Price' dataType='Currency' required='yes' readOnly='no' type='NC'/>"
    "<Property name='E' id='Stock' dataType='Integer' required='no' readOnly='no' type='NC'/>"
    "<Property name='R' id='ERPID' dataType='String' required='no' readOnly='no' type='NC'/>"
    "<Property name='O' id='Notes' dataType='String' required='no' readOnly='no' type='C'/>"
    "<Property name='V' id='VariantID' dataType='String' required='no' readOnly='yes' "
    "type='NC'/></PropertiesDefinition>";

std::string information(const std::string &fields)
{
    return reply("GetProductInformation",
                 kDefinitions + ("<Product Definition='pdRopa'>" + fields + "</Product>"));
}

std::string page(int products, const std::string &categories = {})
{
    std::string content = "<CurrentCategory name='N' id='ZC-310'><Field fieldID='Description'/>"
                          "</CurrentCategory><Categories>" +
                          categories + "</Categories><Products>";
    for (int n = 1; n <= products; ++n)
        content += "<Product id='ZP-" + std::to_string(n) +
                   "'><Field fieldID='Name'>P</Field>"
                   "<Field fieldID='Description'>D</Field></Product>";
    return reply("GetCategoryContent", content + "</Products>");
}

// The demo seller's ERP and back office in process, the service's clients bound to the canned
// marketplace, and the seller's stores 200 and 100, in that order.
class MarketplaceCatalogueTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        setenv("ASISTENTE_MARKETPLACE_URL", marketplace.url.c_str(), 1);
        ASSERT_TRUE(CommerceServerInit());
        setErpLibrary(std::make_shared<FakeErp>());
        setBackOfficeLibrary(backOffice);
        gSeller.reset();
        marketplace.queue(
            "GetSellerInformation",
            reply("GetSellerInformation",
                  "<Stores><Store><StoreID>200</StoreID><Name>A</Name><NumberOfProducts>0"
                  "</NumberOfProducts></Store><Store><StoreID>100</StoreID><Name>B</Name>"
                  "<NumberOfProducts>0</NumberOfProducts></Store></Stores>"));
        backOffice->queue(0, "<GetStoreInfo><Store StoreID='200'><MaxProducts>5</MaxProducts>"
                             "<ProductID>1</ProductID><Status>A</Status></Store><Store "
                             "StoreID='100'><MaxProducts>5</MaxProducts><ProductID>1</ProductID>"
                             "<Status>A</Status></Store></GetStoreInfo>");
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        gSeller.reset();
        setErpLibrary(nullptr);
        setBackOfficeLibrary(nullptr);
        gStoreClient.reset();
        gCatalogOperationsClient.reset();
        gCatalogInfoClient.reset();
        CatalogueTest::TearDown();
    }
    static std::shared_ptr<ZorvantaProperty> property(const std::string &xml)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(xml)) << xml;
        auto read = std::make_shared<ZorvantaProperty>();
        read->setXml(document.documentElement());
        return read;
    }
    static std::shared_ptr<ZorvantaProduct> product()
    {
        auto made = std::make_shared<ZorvantaProduct>();
        made->setId("ZP-1");
        return made;
    }
    static std::shared_ptr<ZorvantaCategory> category()
    {
        auto made = ZorvantaService().RootCategory();
        made->setId("ZC-310");
        return made;
    }

    CannedMarketplace marketplace;
    std::shared_ptr<FakeBackOffice> backOffice = std::make_shared<FakeBackOffice>();

private:
    std::string m_separator = gDecimalSeparator;
};

} // namespace

TEST_F(MarketplaceCatalogueTest, aDecimalShowsTheMachinesSeparatorAndTravelsWithAPoint)
{
    struct Row
    {
        const char *separator, *dataType, *wire, *shown, *typed, *sent;
    };
    const Row rows[] = {
        {",", "Currency", "12.5", "12,5", "12,5", "12.5"},
        {",", "Float", "1.234.5", "1,234.5", "1,2,3", "1.2,3"}, // the first separator only
        {".", "Double", "1.5", "1.5", "1,5", "1.5"},
        {",", "Integer", "1.5", "1.5", "1,5", "1,5"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(std::string(row.dataType) + " " + row.wire);
        gDecimalSeparator = row.separator;
        XmlDocument field;
        field.loadXML(std::string("<Field fieldID='P'>") + row.wire + "</Field>");
        ZorvantaValue value;
        value.setDefinition(property(std::string("<Property id='P' name='P' dataType='") +
                                     row.dataType + "' required='no' readOnly='no'/>"));
        value.setXml(field.documentElement());
        EXPECT_EQ(value.value(), row.shown);
        value.setValue(row.typed);
        EXPECT_EQ(value.xml().xml(),
                  std::string("<Field fieldID=\"P\"><![CDATA[") + row.sent + "]]></Field>");
    }
}

TEST_F(MarketplaceCatalogueTest, aProductsPropertiesFallInThreeGroupsWithoutVariantIdOrErpCode)
{
    gDecimalSeparator = ",";
    marketplace.queue("GetProductInformation",
                      information("<Field fieldID='Name'>Camiseta</Field><Field fieldID='Price'>"
                                  "12.5</Field><Field fieldID='ERPID'>E</Field><Field "
                                  "fieldID='Notes'/><VariantProperties><Field fieldID="
                                  "'VariantID'>V</Field><Field fieldID='Color'><![CDATA[Rojo]]>"
                                  "</Field><Field fieldID='Talla'/><Field fieldID='Stock'>3"
                                  "</Field></VariantProperties>"));
    const auto shirt = product();
    EXPECT_EQ(idsOf(shirt->CharacteristicProperties()), Texts{"Name"});
    EXPECT_EQ(idsOf(shirt->variantProperties()), (Texts{"Color", "Talla"}));
    // Notes has type='C': any type at all makes a property non-characteristic.
    EXPECT_EQ(idsOf(shirt->NonCharacteristicProperties()), (Texts{"Price", "Notes", "Stock"}));
    Texts values;
    for (const auto &value : *shirt->values())
        values.push_back(value->definition()->id() + "=" + value->value());
    EXPECT_EQ(values, (Texts{"Name=Camiseta", "Price=12,5", "Color=Rojo", "Stock=3"}));
    EXPECT_EQ(marketplace.callsOf("GetProductInformation"), (std::vector<Texts>{{"ZP-1", "200"}}));
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(MarketplaceCatalogueTest, theFirstVariantFieldIsSkippedAndAFieldTwiceIsFatal)
{
    marketplace.queue("GetProductInformation", information("<Field fieldID='Name'>a</Field>"));
    marketplace.queue("GetProductInformation",
                      information("<VariantProperties><Field fieldID='Color'>R</Field>"
                                  "</VariantProperties>"));
    EXPECT_TRUE(product()->variantProperties()->empty()) << "no VariantProperties";
    EXPECT_TRUE(product()->variantProperties()->empty()) << "a single Field";

    marketplace.queue("GetProductInformation",
                      information("<Field fieldID='Talla'/><VariantProperties><Field "
                                  "fieldID='VariantID'/><Field fieldID='Talla'>M</Field>"
                                  "</VariantProperties>"));
    EXPECT_EQ(product()->properties(), nullptr);
    EXPECT_THAT(loggedErrors().at(0),
                testing::StartsWith("Error: 457 (ZorvantaProduct:Get Properties): "));
    EXPECT_FALSE(gAppRunning);
}

TEST_F(MarketplaceCatalogueTest, aFailedReadGivesNothingOnceThenWhatWasReadWithoutAskingAgain)
{
    marketplace.queue(
        "GetProductInformation",
        information("<Field fieldID='Name'>a</Field><Field fieldID='Peso'>1</Field>"));
    const auto read = product();
    EXPECT_EQ(read->properties(), nullptr);
    EXPECT_THAT(loggedErrors().at(0),
                testing::StartsWith("Error: -10503 (ZorvantaProduct:Let xml): No se encontró la "
                                    "propiedad Peso en la lista de PropertiesDefinition: "
                                    "<PropertiesDefinition><Property name=\"N\""));
    EXPECT_EQ(idsOf(read->properties()), Texts{"Name"});
    EXPECT_EQ(marketplace.callsOf("GetProductInformation").size(), 1u);
}

TEST_F(MarketplaceCatalogueTest, afterTheLastPageTheSamePageIsAskedForAgainAndGivesNothing)
{
    marketplace.queue("GetCategoryContent", page(50));
    for (int call = 0; call < 3; ++call)
        marketplace.queue("GetCategoryContent", page(3));
    const auto walked = category();
    walked->StartQuery();
    EXPECT_FALSE(walked->allRead()) << "a full page may be followed by an empty one";
    walked->GetMore();
    EXPECT_TRUE(walked->allRead());
    for (int call = 0; call < 2; ++call) {
        walked->GetMore();
        EXPECT_TRUE(walked->products()->empty());
    }
    // The page after the last is asked for, and asked for again: the count does not move.
    EXPECT_EQ(marketplace.callsOf("GetCategoryContent"),
              (std::vector<Texts>{{"ZC-310", "1", "50"},
                                  {"ZC-310", "2", "50"},
                                  {"ZC-310", "3", "50"},
                                  {"ZC-310", "3", "50"}}));
}

TEST_F(MarketplaceCatalogueTest, anEnumerationIsExactlySpelledAndListsItsValuesInOrder)
{
    struct Row
    {
        const char *name, *dataType, *values;
        std::optional<Texts> possibleValues;
        const char *error;
    };
    const Row rows[] = {
        {"values in document order", "Enumeration",
         "<PropertyValues displayName='M'/><PropertyValues displayName='S'/>"
         "<PropertyValues displayName='XL'/>",
         Texts{"M", "S", "XL"}, nullptr},
        {"another spelling is no enumeration", "enumeration", "<PropertyValues displayName='M'/>",
         std::nullopt, nullptr},
        {"an enumeration without values", "Enumeration", "", std::nullopt,
         "Error: -10503 (ZorvantaProperty:Let xml): No existen valores para la enumeración "
         "Talla"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        restart();
        const auto talla =
            property(std::string("<Property id='Talla' name='T' dataType='") + row.dataType +
                     "' required='yes' readOnly='no'>" + row.values + "</Property>");
        if (row.possibleValues) {
            ASSERT_NE(talla->possibleValues(), nullptr);
            Texts values;
            for (const std::string &value : *talla->possibleValues())
                values.push_back(value);
            EXPECT_EQ(values, *row.possibleValues);
        } else {
            EXPECT_EQ(talla->possibleValues(), nullptr);
        }
        EXPECT_EQ(loggedErrors(), row.error ? Texts{row.error} : Texts{});
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(MarketplaceCatalogueTest, everyTemplateOfACategoryIsReadWithTheOneSharedDefinitionList)
{
    marketplace.queue(
        "GetProductDefinition",
        reply("GetProductDefinition",
              kDefinitions +
                  std::string("<Definitions><Definition name='pdCamiseta'><Properties>"
                              "<Property id='Name'/><Property id='Price'/></Properties>"
                              "<VariantProperties><Property id='Talla'/><Property id='Stock'/>"
                              "</VariantProperties></Definition><Definition name='pdGorra' "
                              "DefinitionType='B'><Properties><Property id='Name'/>"
                              "<Property id='Color'/><Property id='ERPID'/></Properties>"
                              "</Definition><Definition name='pdBolso'><Properties>"
                              "<Property id='Notes'/></Properties></Definition></Definitions>")));
    const auto templates = category()->productDefinitions();
    ASSERT_NE(templates, nullptr);
    EXPECT_EQ(idsOf(templates), (Texts{"pdCamiseta", "pdGorra", "pdBolso"}));
    const auto shirt = templates->item(1);
    const auto cap = templates->item(2);
    const auto bag = templates->item(3);
    EXPECT_EQ(idsOf(shirt->properties()), (Texts{"Name", "Price", "Talla", "Stock"}));
    EXPECT_EQ(idsOf(shirt->variantProperties()), Texts{"Talla"});
    EXPECT_EQ(idsOf(shirt->NonCharacteristicProperties()), (Texts{"Price", "Stock"}));
    // A template keeps the seller's ERP code, which only a product drops.
    EXPECT_EQ(idsOf(cap->properties()), (Texts{"Name", "Color", "ERPID"}));
    EXPECT_EQ(idsOf(bag->NonCharacteristicProperties()), Texts{"Notes"});
    EXPECT_EQ(shirt->values(), nullptr);
    EXPECT_TRUE(loggedErrors().empty());
    EXPECT_EQ(marketplace.callsOf("GetProductDefinition"), std::vector<Texts>{{"ZC-310"}});
}

TEST_F(MarketplaceCatalogueTest, aDuplicateIdInAPageIsFatal)
{
    const std::string child = "<Category name='n' id='ZC-1'><Field fieldID='Description'/>"
                              "</Category>";
    std::string products = page(1);
    products.insert(products.find("</Products>"), "<Product id='zp-1'><Field fieldID='Name'>P"
                                                  "</Field><Field fieldID='Description'>D"
                                                  "</Field></Product>");
    for (const std::string &duplicated : {products, page(0, child + child)}) {
        restart();
        marketplace.queue("GetCategoryContent", duplicated);
        category()->StartQuery();
        EXPECT_THAT(loggedErrors().at(0),
                    testing::StartsWith("Error: 457 (ZorvantaCategory:GetMore Method): "));
        EXPECT_FALSE(gAppRunning);
    }
}

TEST_F(MarketplaceCatalogueTest, aRequestKeepsItsDeclarationSoASecondSendCarriesTwo)
{
    const std::string declaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    std::string request = "<RequestNewProduct/>";
    category()->RequestNewProduct(request);
    category()->RequestNewProduct(request);
    EXPECT_EQ(request, declaration + declaration + "<RequestNewProduct/>");
    EXPECT_EQ(marketplace.callsOf("RequestNewProduct"),
              (std::vector<Texts>{{"200", "ZC-310", declaration + "<RequestNewProduct/>"},
                                  {"200", "ZC-310", request}}));
    EXPECT_EQ(ui->boxTexts(), Texts(2, "Solicitud enviada exitosamente"));
    EXPECT_EQ(ui->boxes().at(0).title, "Envío de solicitud");
}

TEST_F(MarketplaceCatalogueTest, aRefusedRequestShowsItsBoxThenTheError)
{
    marketplace.queue("RequestNewCategory",
                      "<RequestNewCategory><RESULT><RETURNCODE>-8500</RETURNCODE><DESCRIPTION>"
                      "Nombre vacío</DESCRIPTION></RESULT></RequestNewCategory>");
    EXPECT_EQ(category()->RequestNewSubcategory(" "), nullptr);
    EXPECT_EQ(loggedErrors(),
              Texts{"Error: -8500 (ZorvantaCategory:RequestNewSubcategory): Nombre vacío"});
    EXPECT_EQ(ui->boxTexts(),
              (Texts{"Solicitud de categoría falló, por favor intente más tarde",
                     "Error: -8500: Error de la aplicación. Contacte al administrador del "
                     "sistema"}));
}

TEST_F(MarketplaceCatalogueTest, withoutTheSellersStoresNothingIsAskedFor)
{
    // The back office answers nothing about the stores: the seller's stores cannot be read.
    setBackOfficeLibrary(std::make_shared<FakeBackOffice>());
    std::string request = "<R/>";
    category()->RequestNewProduct(request);
    EXPECT_EQ(loggedErrors().back(), "Error: -10005 (ZorvantaProduct:Get properties): No existen "
                                     "minitiendas para el cliente ");
    EXPECT_EQ(request, "<R/>");
    EXPECT_TRUE(marketplace.callsOf("RequestNewProduct").empty());
}
