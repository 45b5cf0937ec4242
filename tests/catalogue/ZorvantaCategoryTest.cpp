#include "catalogue/ZorvantaCategory.h"

#include "MarketplaceTest.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"

namespace {

using Texts = std::vector<std::string>;

class ZorvantaCategoryTest : public MarketplaceTest
{
protected:
    std::shared_ptr<ZorvantaCategory> category(const std::string &id = "ZC-310")
    {
        auto made = std::make_shared<ZorvantaCategory>();
        made->setId(id);
        return made;
    }

    /// The page numbers the service was asked for.
    Texts pagesAsked() const
    {
        Texts pages;
        for (const auto &call : marketplace.callsOf("GetCategoryContent"))
            pages.push_back(call.arguments.at(1));
        return pages;
    }
};

template <class T> Texts idsOf(const std::shared_ptr<Collection<std::shared_ptr<T>>> &items)
{
    Texts ids;
    for (const auto &item : *items)
        ids.push_back(item->id());
    return ids;
}

std::string definitionsReply(const std::string &definitions)
{
    return CannedMarketplace::reply(
        "GetProductDefinition",
        "<PropertiesDefinition>"
        "<Property name='Nombre' id='Name' dataType='String' required='yes' readOnly='yes'/>"
        "<Property name='Marca' id='Marca' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Color' id='Color' dataType='Enumeration' required='yes' readOnly='no'>"
        "<PropertyValues displayName='Rojo'/></Property>"
        "<Property name='Precio' id='Cy_List_Price' dataType='Currency' required='yes' "
        "readOnly='no' type='NC'/>"
        "<Property name='Existencia' id='Existencia' dataType='Integer' required='yes' "
        "readOnly='no' type='NC'/>"
        "</PropertiesDefinition>" +
            definitions);
}

} // namespace

TEST_F(ZorvantaCategoryTest, productsAreReadInPagesOfFiftyUntilAPageHoldsFewer)
{
    struct Row
    {
        const char *what;
        int products;
        std::vector<int> pages;
    };
    const Row rows[] = {
        {"a category without products ends after the first page", 0, {0}},
        {"forty-nine fit in one page", 49, {49}},
        {"exactly fifty need a second, empty page", 50, {50, 0}},
        {"a hundred take three pages: 50, 50, 0", 100, {50, 50, 0}},
        {"a hundred and twenty: 50, 50, 20", 120, {50, 50, 20}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        for (int first = 1, page = 0; page < static_cast<int>(row.pages.size()); ++page) {
            marketplace.queue("GetCategoryContent",
                              categoryPage("ZC-310", {}, first, first + row.pages[page] - 1));
            first += row.pages[page];
        }
        const auto walked = category();
        walked->StartQuery();
        std::vector<int> sizes{walked->products()->count()};
        while (!walked->allRead()) {
            walked->GetMore();
            sizes.push_back(walked->products()->count());
        }
        EXPECT_EQ(sizes, row.pages);
    }
    for (const auto &call : marketplace.callsOf("GetCategoryContent")) {
        EXPECT_EQ(call.arguments.at(0), "ZC-310");
        EXPECT_EQ(call.arguments.at(2), "50");
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaCategoryTest, aPageHoldsItsOwnProductsKeyedByIdInReplyOrder)
{
    marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 50));
    marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 51, 53));
    const auto walked = category();
    walked->StartQuery();
    walked->GetMore();
    EXPECT_EQ(idsOf(walked->products()), (Texts{"ZP-51", "ZP-52", "ZP-53"}));
    const auto product = walked->products()->item("zp-52");
    EXPECT_EQ(product->name(), "Producto 52");
    EXPECT_EQ(product->Description(), "Descripción 52");
    EXPECT_FALSE(product->isDefinition());
    EXPECT_EQ(pagesAsked(), (Texts{"1", "2"}));
}

TEST_F(ZorvantaCategoryTest, afterTheLastPageTheServiceIsAskedAgainForTheSamePage)
{
    marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 3));
    marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 3));
    marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 3));
    const auto walked = category();
    walked->StartQuery();
    ASSERT_TRUE(walked->allRead());
    walked->GetMore();
    walked->GetMore();
    EXPECT_TRUE(walked->products()->empty());
    EXPECT_EQ(pagesAsked(), (Texts{"1", "2", "2"}));
}

TEST_F(ZorvantaCategoryTest, startingAgainForgetsThePagesRead)
{
    for (int i = 0; i < 3; ++i)
        marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 50));
    const auto walked = category();
    walked->StartQuery();
    walked->GetMore();
    walked->StartQuery();
    EXPECT_FALSE(walked->allRead());
    EXPECT_EQ(pagesAsked(), (Texts{"1", "2", "1"}));
}

TEST_F(ZorvantaCategoryTest, childrenComeFromTheFirstPageThatHasAny)
{
    marketplace.queue("GetCategoryContent", categoryPage("ZC-300", {}, 1, 50));
    marketplace.queue(
        "GetCategoryContent",
        categoryPage("ZC-300", {{"ZC-310", "Camisetas"}, {"ZC-320", "Calzado"}}, 51, 100));
    marketplace.queue("GetCategoryContent",
                      categoryPage("ZC-300", {{"ZC-330", "Gorras"}}, 101, 101));
    const auto parent = category("ZC-300");
    EXPECT_EQ(parent->children(), nullptr);
    EXPECT_EQ(parent->products(), nullptr);
    parent->StartQuery();
    EXPECT_TRUE(parent->children()->empty());
    parent->GetMore();
    parent->GetMore();
    EXPECT_EQ(idsOf(parent->children()), (Texts{"ZC-310", "ZC-320"}));
    const auto child = parent->children()->item("ZC-320");
    EXPECT_EQ(child->Description(), "Calzado");
    EXPECT_EQ(child->name(), "nZC-320");
    EXPECT_EQ(child->parent(), parent);
    EXPECT_EQ(child->children(), nullptr);
}

TEST_F(ZorvantaCategoryTest, eachPageRenamesTheCategoryAsTheMarketplaceNamesIt)
{
    marketplace.queue("GetCategoryContent", categoryPage("ZC-999", {}, 1, 1));
    const auto root = ZorvantaService().RootCategory();
    EXPECT_EQ(root->id(), "");
    root->StartQuery();
    EXPECT_EQ(marketplace.callsOf("GetCategoryContent").at(0).arguments.at(0), "");
    EXPECT_EQ(root->id(), "ZC-999");
    EXPECT_EQ(root->name(), "Categoría ZC-999");
    EXPECT_EQ(root->Description(), "Descripción ZC-999");
}

TEST_F(ZorvantaCategoryTest, aDuplicateIdInAPageIsFatal)
{
    struct Row
    {
        const char *what;
        std::string page;
    };
    const Row rows[] = {
        {"two products with one id",
         CannedMarketplace::reply(
             "GetCategoryContent",
             "<CurrentCategory name='c' id='c'><Field fieldID='Description'/></CurrentCategory>"
             "<Products><Product id='ZP-1'><Field fieldID='Name'>a</Field><Field "
             "fieldID='Description'>a</Field></Product><Product id='zp-1'><Field "
             "fieldID='Name'>b</Field><Field fieldID='Description'>b</Field></Product>"
             "</Products>")},
        {"two subcategories with one id", categoryPage("c", {{"ZC-1", "a"}, {"ZC-1", "b"}}, 1, 1)},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        gAppRunning = true;
        marketplace.queue("GetCategoryContent", row.page);
        category("c")->StartQuery();
        EXPECT_EQ(loggedError().substr(0, 46), "Error: 457 (ZorvantaCategory:GetMore Method): ");
        EXPECT_FALSE(gAppRunning);
    }
}

TEST_F(ZorvantaCategoryTest, aBadPageIsReportedAndLeavesTheProductsAsTheyStood)
{
    struct Row
    {
        const char *what;
        std::string reply;
        std::string error;
    };
    const std::string noCurrent = CannedMarketplace::reply("GetCategoryContent", "<Products/>");
    const Row rows[] = {
        {"a reply that does not parse", "<GetCategoryContent><Products>",
         "Error: -10503 (ZorvantaCategory:startQuery): El XML retornado por "
         "CommerceServerCatalogInfoAPI.GetCategoryContent está mal construido: "
         "<GetCategoryContent><Products>"},
        {"a reply without the current category", noCurrent,
         "Error: -10503 (ZorvantaCategory:startQuery): El XML retornado por "
         "CommerceServerCatalogInfoAPI.GetCategoryContent no tiene el nodo CurrentCategory: " +
             noCurrent},
        {"the service's own error",
         CannedMarketplace::error("GetCategoryContent", -8010, "Categoría inexistente: ZC-310"),
         "Error: -8010 (ZorvantaCategory:StartQuery): Categoría inexistente: ZC-310"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        marketplace.queue("GetCategoryContent", categoryPage("ZC-310", {}, 1, 50));
        marketplace.queue("GetCategoryContent", row.reply);
        const auto walked = category();
        walked->StartQuery();
        walked->GetMore();
        EXPECT_EQ(loggedError(), row.error);
        EXPECT_EQ(walked->products()->count(), 50);
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(ZorvantaCategoryTest, aCategoryNodeMustNameItselfButMayLackADescription)
{
    struct Row
    {
        const char *what;
        const char *node;
        const char *error;
    };
    const Row rows[] = {
        {"no name", "<Category id='ZC-1'><Field fieldID='Description'/></Category>",
         "no tiene el atributo name para la categoría: <Category id=\"ZC-1\"><Field "
         "fieldID=\"Description\"/></Category>"},
        {"no id", "<Category name='n'><Field fieldID='Description'/></Category>",
         "no tiene el atributo id para la categoría: <Category name=\"n\"><Field "
         "fieldID=\"Description\"/></Category>"},
        {"no description field", "<Category name='n' id='ZC-1'/>",
         "no tiene etiqueta Field FieldID=Description: <Category name=\"n\" id=\"ZC-1\"/>"},
        {"an empty description is accepted",
         "<Category name='n' id='ZC-1'><Field fieldID='Description'/></Category>", ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(row.node));
        category()->setXml(document.documentElement());
        const std::string expected = *row.error == '\0'
                                         ? std::string()
                                         : std::string("Error: -10503 (ZorvantaCategory:Let "
                                                       "xml): El XML retornado por "
                                                       "CommerceServerStoreAPI."
                                                       "ObtenerContenidoCategoria ") +
                                               row.error;
        EXPECT_EQ(loggedErrors().empty() ? std::string() : loggedErrors().back(), expected);
    }
}

TEST_F(ZorvantaCategoryTest, eachTemplateTakesItsPropertiesFromTheOneSharedDefinition)
{
    marketplace.queue(
        "GetProductDefinition",
        definitionsReply("<Definition name='pdRopa' DefinitionType='Producto'><Properties>"
                         "<Property id='Name'/><Property id='Cy_List_Price'/></Properties>"
                         "<VariantProperties><Property id='Color'/><Property "
                         "id='Existencia'/></VariantProperties></Definition>"
                         "<Definition name='pdSimple'><Properties><Property id='Marca'/>"
                         "</Properties></Definition>"));
    const auto parent = category("ZC-300");
    const auto definitions = parent->productDefinitions();
    ASSERT_NE(definitions, nullptr);
    ASSERT_EQ(definitions->count(), 2);
    const auto ropa = definitions->item(1);
    EXPECT_TRUE(ropa->isDefinition());
    EXPECT_EQ(ropa->id(), "pdRopa");
    EXPECT_EQ(ropa->name(), "");
    EXPECT_EQ(idsOf(ropa->properties()), (Texts{"Name", "Cy_List_Price", "Color", "Existencia"}));
    EXPECT_EQ(idsOf(ropa->CharacteristicProperties()), Texts{"Name"});
    // Unlike a product's, a template's first variant property is not skipped.
    EXPECT_EQ(idsOf(ropa->variantProperties()), Texts{"Color"});
    EXPECT_EQ(idsOf(ropa->NonCharacteristicProperties()), (Texts{"Cy_List_Price", "Existencia"}));
    EXPECT_TRUE(ropa->GetProperty("Color")->isVariant());
    EXPECT_FALSE(ropa->GetProperty("Existencia")->isVariant());
    EXPECT_EQ(ropa->values(), nullptr);
    EXPECT_EQ(idsOf(definitions->item(2)->properties()), Texts{"Marca"});
    EXPECT_EQ(marketplace.callsOf("GetProductDefinition").at(0).arguments, Texts{"ZC-300"});

    EXPECT_EQ(parent->productDefinitions(), definitions);
    EXPECT_EQ(marketplace.callsOf("GetProductDefinition").size(), 1u);
    EXPECT_TRUE(marketplace.callsOf("GetProductInformation").empty());
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaCategoryTest, aCategoryWithoutTemplatesHasAnEmptyList)
{
    marketplace.queue("GetProductDefinition", definitionsReply(""));
    const auto definitions = category()->productDefinitions();
    ASSERT_NE(definitions, nullptr);
    EXPECT_TRUE(definitions->empty());
}

TEST_F(ZorvantaCategoryTest, aFailedReadOfTemplatesGivesNothingOnceAndThenWhatWasRead)
{
    struct Row
    {
        const char *what;
        std::string reply;
        std::string error;
    };
    const std::string noDefinition = CannedMarketplace::reply("GetProductDefinition");
    const Row rows[] = {
        {"a reply that does not parse", "<GetProductDefinition>",
         "Error: -10503 (ZorvantaCategory:Get productDefinitions): El XML retornado por "
         "CommerceServerCatalogInfoAPI.GetProductDefinitions está mal construido: "
         "<GetProductDefinition>"},
        {"a reply without PropertiesDefinition", noDefinition,
         "Error: -10503 (ZorvantaCategory:Get productDefinitions): El XML retornado por "
         "CommerceServerCatalogInfoAPI.GetProductDefinitions no tiene el nodo "
         "PropertiesDefinition: " +
             noDefinition},
        {"the service's own error",
         CannedMarketplace::error("GetProductDefinition", -8010, "Categoría inexistente: x"),
         "Error: -8010 (ZorvantaCategory:Get productDefinitions): Categoría inexistente: x"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        marketplace.queue("GetProductDefinition", row.reply);
        const auto failing = category();
        EXPECT_EQ(failing->productDefinitions(), nullptr);
        EXPECT_EQ(loggedError(), row.error);
        ASSERT_NE(failing->productDefinitions(), nullptr);
        EXPECT_TRUE(failing->productDefinitions()->empty());
    }
    EXPECT_EQ(marketplace.callsOf("GetProductDefinition").size(), 3u);
}

TEST_F(ZorvantaCategoryTest, aProductRequestCarriesTheDeclarationAndKeepsIt)
{
    givenMinistores({"100", "200"});
    std::string request = "<RequestNewProduct><Product Definition='pdRopa'/></RequestNewProduct>";
    const auto parent = category("ZC-310");
    parent->RequestNewProduct(request);
    const std::string declaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    EXPECT_EQ(request, declaration + "<RequestNewProduct><Product Definition='pdRopa'/>"
                                     "</RequestNewProduct>");
    parent->RequestNewProduct(request);
    const auto calls = marketplace.callsOf("RequestNewProduct");
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(
        calls[0].arguments,
        (Texts{"100", "ZC-310",
               declaration +
                   "<RequestNewProduct><Product Definition='pdRopa'/></RequestNewProduct>"}));
    // The caller's text went out with its prefix the first time: the second send has two.
    EXPECT_EQ(calls[1].arguments.at(2).rfind(declaration + declaration, 0), 0u);
    EXPECT_EQ(ui->boxes().size(), 2u);
    EXPECT_EQ(ui->boxes().at(0).text, "Solicitud enviada exitosamente");
    EXPECT_EQ(ui->boxes().at(0).title, "Envío de solicitud");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaCategoryTest, aRefusedRequestShowsItsBoxAndThenTheError)
{
    struct Row
    {
        const char *what;
        bool definition;
        std::string reply;
        std::string error;
        std::string box;
    };
    const Row rows[] = {
        {"a product refused", false,
         CannedMarketplace::error("RequestNewProduct", -8505, "Definición desconocida"),
         "Error: -8505 (ZorvantaProduct:RequestNewProduct): Definición desconocida",
         applicationErrorBox(-8505)},
        {"a template whose reply does not parse", true, "<RequestNewProductDef>",
         "Error: -10503 (ZorvantaCategory:RequestNewProductDefinition): El XML retornado por "
         "CommerceServerStoreAPI.RequestNewProductDef está mal construido: "
         "<RequestNewProductDef>",
         applicationErrorBox(-10503)},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        gSeller.reset();
        givenMinistores({"300"});
        marketplace.queue(row.definition ? "RequestNewProductDef" : "RequestNewProduct",
                          row.reply);
        std::string request = "<R/>";
        if (row.definition)
            category()->RequestNewProductDefinition(request);
        else
            category()->RequestNewProduct(request);
        EXPECT_EQ(loggedError(), row.error);
        EXPECT_EQ(ui->boxTexts(),
                  (Texts{"Solicitud de producto falló, por favor intente más tarde", row.box}));
        EXPECT_EQ(ui->boxes().at(0).title, "Envío de solicitud");
    }
}

TEST_F(ZorvantaCategoryTest, withoutTheSellersStoresNoRequestIsSent)
{
    // The seller's stores cannot be read: their reply does not parse.
    marketplace.queue("GetSellerInformation", "<GetSellerInformation>");
    std::string request = "<R/>";
    category()->RequestNewProduct(request);
    EXPECT_EQ(request, "<R/>");
    ASSERT_EQ(loggedErrors().size(), 2u);
    EXPECT_EQ(loggedErrors().at(1), "Error: -10005 (ZorvantaProduct:Get properties): No existen "
                                    "minitiendas para el cliente ");
    EXPECT_TRUE(marketplace.callsOf("RequestNewProduct").empty());
}

TEST_F(ZorvantaCategoryTest, aNewSubcategoryCarriesOnlyItsName)
{
    givenMinistores({"200", "100"});
    const auto created = category("ZC-400")->RequestNewSubcategory("Escalada en roca");
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->name(), "Escalada en roca");
    EXPECT_EQ(created->id(), "");
    EXPECT_EQ(created->Description(), "");
    EXPECT_EQ(marketplace.callsOf("RequestNewCategory").at(0).arguments,
              (Texts{"200", "ZC-400", "Escalada en roca"}));
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(ZorvantaCategoryTest, aNameThatIsNotPlainTextBreaksTheNewCategory)
{
    givenMinistores({"100"});
    // The marketplace takes the name; the category built from it does not parse.
    const auto created = category()->RequestNewSubcategory("Niños & niñas");
    EXPECT_EQ(marketplace.callsOf("RequestNewCategory").at(0).arguments.at(2), "Niños & niñas");
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->name(), "");
    EXPECT_EQ(loggedError().substr(0, 45), "Error: 91 (ZorvantaCategory:xml Property Set)");
    EXPECT_FALSE(gAppRunning);
}

TEST_F(ZorvantaCategoryTest, aRefusedSubcategoryGivesNothingAfterTwoBoxes)
{
    givenMinistores({"100"});
    marketplace.queue("RequestNewCategory",
                      CannedMarketplace::error("RequestNewCategory", -8500, "Nombre vacío"));
    EXPECT_EQ(category()->RequestNewSubcategory(" "), nullptr);
    EXPECT_EQ(loggedError(),
              "Error: -8500 (ZorvantaCategory:RequestNewSubcategory): Nombre vacío");
    EXPECT_EQ(ui->boxTexts(), (Texts{"Solicitud de categoría falló, por favor intente más tarde",
                                     applicationErrorBox(-8500)}));
}
