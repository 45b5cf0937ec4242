#include "catalogue/ZorvantaProduct.h"

#include "MarketplaceTest.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "shell/Constants.h"

#include <optional>

namespace {

using Texts = std::vector<std::string>;

const char *const kDefinitions =
    "<PropertiesDefinition>"
    "<Property name='Nombre' id='Name' dataType='String' required='yes' readOnly='yes'/>"
    "<Property name='Marca' id='Marca' dataType='String' required='yes' readOnly='no'/>"
    "<Property name='Color' id='Color' dataType='Enumeration' required='yes' readOnly='no'>"
    "<PropertyValues displayName='Rojo'/><PropertyValues displayName='Azul'/></Property>"
    "<Property name='Talla' id='Talla' dataType='String' required='yes' readOnly='no'/>"
    "<Property name='Precio' id='Cy_List_Price' dataType='Currency' required='yes' "
    "readOnly='no' type='NC'/>"
    "<Property name='Existencia' id='Existencia' dataType='Integer' required='yes' "
    "readOnly='no' type='NC'/>"
    "<Property name='Código ERP' id='ERPID' dataType='String' required='no' readOnly='no' "
    "type='NC'/>"
    "<Property name='Notas' id='Observaciones' dataType='String' required='no' readOnly='no' "
    "type='C'/>"
    "<Property name='Variante' id='VariantID' dataType='String' required='no' readOnly='yes' "
    "type='NC'/>"
    "</PropertiesDefinition>";

std::string information(const std::string &product)
{
    return CannedMarketplace::reply("GetProductInformation", kDefinitions + product);
}

// A shirt with fixed fields, an ERP code, an empty note and three variant fields after the
// variant's own id.
const char *const kShirt =
    "<Product Definition='pdVariantProduct' id='ZP-1'>"
    "<Field fieldID='Name'>Camiseta</Field><Field fieldID='Marca'>Andina</Field>"
    "<Field fieldID='Cy_List_Price'>12.5</Field><Field fieldID='ERPID'>ERP-1</Field>"
    "<Field fieldID='Observaciones'/>"
    "<VariantProperties><Field fieldID='VariantID'>ZP-1-V</Field>"
    "<Field fieldID='Color'><![CDATA[Rojo]]></Field><Field fieldID='Talla'/>"
    "<Field fieldID='Existencia'>3</Field></VariantProperties></Product>";

class ZorvantaProductTest : public MarketplaceTest
{
protected:
    void SetUp() override
    {
        MarketplaceTest::SetUp();
        m_separator = gDecimalSeparator;
        gDecimalSeparator = ",";
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        MarketplaceTest::TearDown();
    }

    /// A product as a category page makes it.
    static std::shared_ptr<ZorvantaProduct> product(const std::string &id = "ZP-1")
    {
        XmlDocument page;
        page.loadXML("<Product id='" + id +
                     "'><Field fieldID='Name'>Camiseta</Field>"
                     "<Field fieldID='Description'>De algodón</Field></Product>");
        auto made = std::make_shared<ZorvantaProduct>();
        made->setXml(page.documentElement());
        return made;
    }

private:
    std::string m_separator;
};

Texts idsOf(const std::shared_ptr<ZorvantaProduct::Properties> &properties)
{
    Texts ids;
    for (const auto &property : *properties)
        ids.push_back(property->id());
    return ids;
}

Texts valuesOf(const std::shared_ptr<ZorvantaProduct::Values> &values)
{
    Texts texts;
    for (const auto &value : *values)
        texts.push_back(value->definition()->id() + "=" + value->value());
    return texts;
}

} // namespace

TEST_F(ZorvantaProductTest, aCategoryPageGivesIdentityAndNoCall)
{
    const auto shirt = product();
    EXPECT_EQ(shirt->id(), "ZP-1");
    EXPECT_EQ(shirt->name(), "Camiseta");
    EXPECT_EQ(shirt->Description(), "De algodón");
    EXPECT_EQ(shirt->productDefinition(), "");
    EXPECT_TRUE(marketplace.callsOf("GetProductInformation").empty());
}

TEST_F(ZorvantaProductTest, thePropertiesFallInThreeGroupsWithoutTheErpCode)
{
    givenMinistores({"200", "100"});
    marketplace.queue("GetProductInformation", information(kShirt));
    const auto shirt = product();
    EXPECT_EQ(idsOf(shirt->CharacteristicProperties()), (Texts{"Name", "Marca"}));
    EXPECT_EQ(idsOf(shirt->properties()), (Texts{"Name", "Marca", "Cy_List_Price", "Observaciones",
                                                 "Color", "Talla", "Existencia"}));
    // The variant's own id, first under VariantProperties, never enters.
    EXPECT_EQ(idsOf(shirt->variantProperties()), (Texts{"Color", "Talla"}));
    EXPECT_EQ(idsOf(shirt->NonCharacteristicProperties()),
              (Texts{"Cy_List_Price", "Observaciones", "Existencia"}));
    EXPECT_EQ(valuesOf(shirt->values()),
              (Texts{"Name=Camiseta", "Marca=Andina", "Cy_List_Price=12,5", "Color=Rojo",
                     "Existencia=3"}));
    EXPECT_TRUE(shirt->GetProperty("Color")->isVariant());
    EXPECT_FALSE(shirt->GetProperty("Existencia")->isVariant());
    EXPECT_EQ(shirt->GetValue("Color")->definition(), shirt->GetProperty("Color"));
    EXPECT_EQ(shirt->productDefinition(), "pdVariantProduct");
    const auto calls = marketplace.callsOf("GetProductInformation");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].arguments, (Texts{"ZP-1", "200"}));
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaProductTest, readingTheValuesReadsTheProductOnce)
{
    givenMinistores({"100"});
    marketplace.queue("GetProductInformation", information(kShirt));
    const auto shirt = product();
    ASSERT_NE(shirt->values(), nullptr);
    shirt->properties();
    shirt->variantProperties();
    EXPECT_EQ(marketplace.callsOf("GetProductInformation").size(), 1u);
}

TEST_F(ZorvantaProductTest, theVariantGroupDependsOnWhatFollowsTheVariantsId)
{
    struct Row
    {
        const char *what;
        std::string product;
        Texts variants;
        Texts properties;
    };
    const Row rows[] = {
        {"no VariantProperties at all",
         "<Product Definition='pd'><Field fieldID='Name'>a</Field></Product>",
         {},
         {"Name"}},
        {"a single Field, which is skipped",
         "<Product Definition='pd'><Field fieldID='Name'>a</Field><VariantProperties>"
         "<Field fieldID='Color'>Rojo</Field></VariantProperties></Product>",
         {},
         {"Name"}},
        {"a reply without ERPID",
         "<Product Definition='pd'><VariantProperties><Field fieldID='VariantID'/>"
         "<Field fieldID='Talla'>M</Field></VariantProperties></Product>",
         {"Talla"},
         {"Talla"}},
        {"a variant that is not characteristic joins the others",
         "<Product Definition='pd'><VariantProperties><Field fieldID='VariantID'/>"
         "<Field fieldID='Existencia'>1</Field></VariantProperties></Product>",
         {},
         {"Existencia"}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        gSeller.reset();
        givenMinistores({"100"});
        marketplace.queue("GetProductInformation", information(row.product));
        const auto read = product();
        EXPECT_EQ(idsOf(read->variantProperties()), row.variants);
        EXPECT_EQ(idsOf(read->properties()), row.properties);
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaProductTest, aFailedReadIsReportedAndWhatWasReadIsKeptWithoutAskingAgain)
{
    struct Row
    {
        const char *what;
        std::string reply;
        std::string error;
        /// The properties a second read gives; nothing when the failure came before any was.
        std::optional<Texts> kept;
    };
    const std::string unknownField = information(
        "<Product Definition='pd'><Field fieldID='Name'>a</Field><Field fieldID='Peso'>1</Field>"
        "<Field fieldID='Marca'>b</Field></Product>");
    std::string definitionsXml = kDefinitions;
    for (std::size_t at = 0; (at = definitionsXml.find('\'', at)) != std::string::npos;)
        definitionsXml.replace(at, 1, "\"");
    const std::string noFieldId =
        information("<Product Definition='pd'><Field id='Name'>a</Field></Product>");
    const std::string noDefinitionAttribute =
        information("<Product id='ZP-1'><Field fieldID='Name'>a</Field></Product>");
    const std::string noProduct = information("");
    const std::string noDefinitions = CannedMarketplace::reply("GetProductInformation", kShirt);
    const std::string head = "Error: -10503 (ZorvantaProduct:Get properties): El XML retornado "
                             "por CommerceServerCatalogInfoAPI.GetProductInformation ";
    const Row rows[] = {
        {"a field the definitions do not hold", unknownField,
         "Error: -10503 (ZorvantaProduct:Let xml): No se encontró la propiedad Peso en la lista "
         "de PropertiesDefinition: " +
             definitionsXml,
         Texts{"Name"}},
        {"a field without fieldID", noFieldId,
         head + "no tiene el atributo fieldID: : " + noFieldId, Texts{}},
        {"a product without its template", noDefinitionAttribute,
         head + "no tiene el atributo definition: " + noDefinitionAttribute, std::nullopt},
        {"no Product", noProduct, head + "no tiene el nodo Product: " + noProduct, std::nullopt},
        {"no PropertiesDefinition", noDefinitions,
         head + "no tiene el nodo PropertiesDefinition: " + noDefinitions, std::nullopt},
        {"a reply that does not parse", "<GetProductInformation>",
         head + "está mal construido: <GetProductInformation>", std::nullopt},
        {"the service's own error",
         CannedMarketplace::error("GetProductInformation", -8011, "Producto inexistente: ZP-1"),
         "Error: -8011 (ZorvantaProduct:Get properties): Producto inexistente: ZP-1",
         std::nullopt},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        gSeller.reset();
        givenMinistores({"100"});
        marketplace.queue("GetProductInformation", row.reply);
        const auto failing = product();
        EXPECT_EQ(failing->properties(), nullptr);
        EXPECT_EQ(loggedError(), row.error);
        EXPECT_TRUE(gAppRunning);

        const std::size_t asked = marketplace.callsOf("GetProductInformation").size();
        if (!row.kept)
            marketplace.queue("GetProductInformation", information(kShirt));
        const auto second = failing->properties();
        if (row.kept) {
            ASSERT_NE(second, nullptr);
            EXPECT_EQ(idsOf(second), *row.kept);
            EXPECT_EQ(marketplace.callsOf("GetProductInformation").size(), asked);
        } else {
            ASSERT_NE(second, nullptr) << "read again, in full";
            EXPECT_EQ(second->count(), 7);
        }
    }
}

TEST_F(ZorvantaProductTest, aFieldListedTwiceIsFatal)
{
    givenMinistores({"100"});
    marketplace.queue("GetProductInformation",
                      information("<Product Definition='pd'><Field fieldID='Talla'/>"
                                  "<VariantProperties><Field fieldID='VariantID'/>"
                                  "<Field fieldID='Talla'>M</Field></VariantProperties>"
                                  "</Product>"));
    EXPECT_EQ(product()->properties(), nullptr);
    EXPECT_EQ(loggedError().substr(0, 44), "Error: 457 (ZorvantaProduct:Get Properties):");
    EXPECT_FALSE(gAppRunning);
}

TEST_F(ZorvantaProductTest, withoutTheSellersStoresTheProductIsNotAskedFor)
{
    marketplace.queue("GetSellerInformation", "<GetSellerInformation>");
    EXPECT_EQ(product()->properties(), nullptr);
    EXPECT_EQ(loggedErrors().back(), "Error: -10005 (ZorvantaProduct:Get properties): No existen "
                                     "minitiendas para el cliente ");
    EXPECT_TRUE(marketplace.callsOf("GetProductInformation").empty());
}

TEST_F(ZorvantaProductTest, lookingUpWhatIsNotHeldIsFatal)
{
    const auto unread = product();
    EXPECT_EQ(unread->GetProperty("Name"), nullptr);
    EXPECT_EQ(loggedError().substr(0, 47), "Error: 91 (ZorvantaProduct:GetProperty Method):");
    EXPECT_FALSE(gAppRunning);

    gAppRunning = true;
    givenMinistores({"100"});
    marketplace.queue("GetProductInformation", information(kShirt));
    const auto shirt = product();
    shirt->properties();
    // An empty value has no entry: callers look such values up themselves.
    try {
        shirt->GetValue("Talla");
        FAIL() << "an empty value was found";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), RuntimeErrorNumber::InvalidCall);
    }
}

TEST_F(ZorvantaProductTest, aProductNodeOfACategoryPageMustNameAndDescribeIt)
{
    struct Row
    {
        const char *what;
        const char *node;
        const char *error;
    };
    const Row rows[] = {
        {"no id", "<Product><Field fieldID='Name'>a</Field></Product>",
         "no tiene el atributo id del producto: <Product><Field fieldID=\"Name\">a</Field>"
         "</Product>"},
        {"no description", "<Product id='1'><Field fieldID='Name'>a</Field></Product>",
         "no tiene etiqueta Field FieldID=Description: <Product id=\"1\"><Field "
         "fieldID=\"Name\">a</Field></Product>"},
        {"an empty description",
         "<Product id='1'><Field fieldID='Description'/><Field fieldID='Name'>a</Field></Product>",
         "no tiene valor para Field FieldID=Description: <Product id=\"1\"><Field "
         "fieldID=\"Description\"/><Field fieldID=\"Name\">a</Field></Product>"},
        {"an empty name",
         "<Product id='1'><Field fieldID='Description'>d</Field><Field fieldID='Name'/></Product>",
         "no tiene valor para Field FieldID=Name: <Product id=\"1\"><Field "
         "fieldID=\"Description\">d</Field><Field fieldID=\"Name\"/></Product>"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(row.node));
        ZorvantaProduct read;
        read.setXml(document.documentElement());
        EXPECT_EQ(loggedError(), std::string("Error: -10503 (ZorvantaProduct:Let xml): El XML "
                                             "retornado por CommerceServerCatalogInfoAPI."
                                             "GetCategoryContent ") +
                                     row.error);
    }
}
