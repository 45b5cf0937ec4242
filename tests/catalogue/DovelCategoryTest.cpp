#include "catalogue/DovelCategory.h"

#include "ErpTest.h"
#include "catalogue/SellerProduct.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "stores/ZorvantaMinistore.h"

namespace {

using Texts = std::vector<std::string>;
constexpr const char *kContents = "ObtenerContenidoCategoria";

Texts codesOf(const std::shared_ptr<DovelCategory::Products> &products)
{
    Texts codes;
    for (const auto &line : *products)
        codes.push_back(line->sellerProduct()->dovelID());
    return codes;
}

// A line of the association list, as the layer above makes them.
class AssociationLine : public ProductLine
{
public:
    void setXml(const XmlNode &node) override { xml = node.xml(); }
    std::shared_ptr<SellerProduct> sellerProduct() override { return m_product; }
    std::int32_t ClassDebugID() const override { return 0; }

    std::string xml;
    std::int16_t productType = 0;
    std::shared_ptr<ZorvantaMinistore> ministore;

private:
    std::shared_ptr<SellerProduct> m_product = std::make_shared<SellerProduct>();
};

class DovelCategoryTest : public ErpTest
{
protected:
    void TearDown() override
    {
        ProductLine::registerFactory(1, nullptr);
        ErpTest::TearDown();
    }
};

} // namespace

TEST_F(DovelCategoryTest, code6007ShowsTheChildrenWithoutProductsAndEndsTheCategory)
{
    erp->queue(kContents, {6007,
                           categoryReply("DC-01", "Ferretería",
                                         {{"Herramientas", "DC-0101"}, {"Tornillos", "DC-0102"}},
                                         erpProducts(1, 2)),
                           ""});
    DovelCategory category;
    category.setId("DC-01");
    category.StartQuery();
    EXPECT_EQ(category.allRead(), "True");
    EXPECT_TRUE(category.products()->empty());
    ASSERT_EQ(category.children()->count(), 2);
    EXPECT_EQ(category.children()->item(2)->id(), "DC-0102");
    EXPECT_EQ(category.children()->item(2)->name(), "Tornillos");
    EXPECT_EQ(category.children()->item(1)->children(), nullptr);
    EXPECT_EQ(category.name(), "Ferretería");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(DovelCategoryTest, onlyTheErpsCodeEndsAWalk)
{
    struct Row
    {
        const char *what;
        std::int32_t code;
        bool forward;
        const char *allRead;
        std::size_t products;
    };
    const Row rows[] = {
        {"an ordinary page", 0, true, "False", 2},
        {"a full page is no end", 0, false, "False", 2},
        {"102 forwards is the end", 102, true, "True", 2},
        {"102 backwards is an ordinary page", 102, false, "False", 2},
        {"101 backwards is the start of the list", 101, false, "True", 2},
        {"101 forwards is an ordinary page", 101, true, "False", 2},
        {"103 is both ends at once", 103, true, "True", 2},
        {"6007: nothing left, and its products are not read", 6007, false, "True", 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        erp->queue(kContents, {row.code, categoryReply("C", "c", {}, erpProducts(1, 2)), ""});
        DovelCategory category;
        category.setForward(row.forward);
        category.StartQuery();
        EXPECT_EQ(category.allRead(), row.allRead);
        EXPECT_EQ(category.products()->count(), static_cast<int>(row.products));
        EXPECT_EQ(erp->calls.back().direction, row.forward ? 0 : 1);
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(DovelCategoryTest, aGetMoreAfterTheEndAsksTheErpAgain)
{
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 50)), "C|P-50"});
    erp->queue(kContents, {6007, categoryReply("C", "c", {}, ""), ""});
    erp->queue(kContents, {6007, categoryReply("C", "c", {}, ""), ""});
    DovelCategory category;
    category.setId("C");
    category.StartQuery();
    EXPECT_EQ(codesOf(category.products()).front(), "P-1");
    category.GetMore();
    category.GetMore();
    EXPECT_EQ(erp->callsOf(kContents).size(), 3u);
    EXPECT_TRUE(category.products()->empty());
}

TEST_F(DovelCategoryTest, theErpIsToldWhereTheLastPageEndedUntilTheWalkStartsAgain)
{
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 50)), "C|P-1|P-50"});
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(51, 60)), "C|P-51|P-60"});
    DovelCategory category;
    category.setId("C");
    category.setProductType(0);
    category.setMinistore(ministore("200"));
    category.StartQuery();
    category.GetMore();
    EXPECT_EQ(codesOf(category.products()).front(), "P-51");
    category.StartQuery();
    const auto calls = erp->callsOf(kContents);
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].position, "");
    EXPECT_EQ(calls[1].position, "C|P-1|P-50");
    EXPECT_EQ(calls[2].position, "");
    for (const auto &call : calls) {
        EXPECT_EQ(call.text, "C");
        EXPECT_EQ(call.querySize, 50);
        EXPECT_EQ(call.ministoreId, "200");
        EXPECT_EQ(call.productType, 0);
    }
}

TEST_F(DovelCategoryTest, childrenComeFromTheFirstPageThatHasAny)
{
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 1)), ""});
    erp->queue(kContents, {0, categoryReply("C", "c", {{"Uno", "C1"}}, erpProducts(2, 2)), ""});
    erp->queue(kContents, {0, categoryReply("C", "c", {{"Dos", "C2"}}, erpProducts(3, 3)), ""});
    DovelCategory category;
    EXPECT_EQ(category.children(), nullptr);
    EXPECT_EQ(category.allRead(), "False");
    category.StartQuery();
    EXPECT_TRUE(category.children()->empty());
    category.GetMore();
    category.GetMore();
    ASSERT_EQ(category.children()->count(), 1);
    EXPECT_EQ(category.children()->item(1)->id(), "C1");
}

TEST_F(DovelCategoryTest, aFailedPageIsReportedAndOnlyABadCallIsFatal)
{
    struct Row
    {
        const char *what;
        std::int32_t code;
        std::string reply;
        std::string error;
        bool running;
    };
    const std::string noCurrent = "<ObtenerContenidoCategoria><Productos/>"
                                  "</ObtenerContenidoCategoria>";
    const Row rows[] = {
        {"a code of failure", 6001, categoryReply("C", "c", {}, ""),
         "Error: -11001 (DovelCategory:getMore): La función APIDovel.ObtenerContenidoCategoria "
         "retornó con error 6001",
         false},
        {"6007 with an empty reply", 6007, "",
         "Error: -10500 (DovelCategory:getMore): El XML retornado por "
         "APIDovel.ObtenerContenidoCategoria está mal construido: ",
         true},
        {"a reply that does not parse", 0, "<ObtenerContenidoCategoria>",
         "Error: -10500 (DovelCategory:getMore): El XML retornado por "
         "APIDovel.ObtenerContenidoCategoria está mal construido: <ObtenerContenidoCategoria>",
         true},
        {"no current category", 0, noCurrent,
         "Error: -10500 (DovelCategory:getMore): El XML retornado por "
         "APIDovel.ObtenerContenidoCategoria no tiene el nodo CategoriaActual: " +
             noCurrent,
         true},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        gAppRunning = true;
        erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 3)), ""});
        erp->queue(kContents, {row.code, row.reply, ""});
        DovelCategory category;
        category.StartQuery();
        category.GetMore();
        EXPECT_EQ(loggedError(), row.error);
        EXPECT_EQ(gAppRunning, row.running);
        EXPECT_EQ(category.products()->count(), 3);
    }
}

TEST_F(DovelCategoryTest, aCategoryNodeMustCarryNombreAndId)
{
    struct Row
    {
        const char *what;
        const char *node;
        const char *error;
    };
    const Row rows[] = {
        {"no nombre", "<Categoria id='C1'/>",
         "no tiene el atributo nombre para la categoría: <Categoria id=\"C1\"/>"},
        {"no id", "<Categoria nombre='Uno'/>",
         "no tiene el atributo id para la categoría actual : <Categoria nombre=\"Uno\"/>"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(row.node));
        DovelCategory category;
        category.setXml(document.documentElement());
        EXPECT_EQ(loggedError(), std::string("Error: -10500 (DovelCategory:Let xml): El XML "
                                             "retornado por APIDovel.ObtenerContenidoCategoria ") +
                                     row.error);
    }
}

TEST_F(DovelCategoryTest, eachLineIsWhatTheFactoryOfItsListMakes)
{
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 2)), ""});
    DovelCategory category;
    category.setProductType(1);
    category.StartQuery();
    EXPECT_TRUE(category.products()->empty()) << "no factory makes association lines yet";

    ProductLine::registerFactory(
        1,
        [](const XmlNode &node, std::int16_t type,
           const std::shared_ptr<ZorvantaMinistore> &store) -> std::shared_ptr<ProductLine> {
            auto line = std::make_shared<AssociationLine>();
            line->setXml(node);
            line->productType = type;
            line->ministore = store;
            return line;
        });
    erp->queue(kContents, {0, categoryReply("C", "c", {}, erpProducts(1, 2)), ""});
    const auto store = ministore("100");
    category.setMinistore(store);
    category.StartQuery();
    ASSERT_EQ(category.products()->count(), 2);
    const auto line = std::dynamic_pointer_cast<AssociationLine>(category.products()->item(2));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->xml, "<Producto><CodigoDovel>P-2</CodigoDovel><Descripcion>Artículo 2"
                         "</Descripcion><Referencia>R2</Referencia></Producto>");
    EXPECT_EQ(line->productType, 1);
    EXPECT_EQ(line->ministore, store);
    EXPECT_EQ(erp->calls.back().productType, 1);
}
