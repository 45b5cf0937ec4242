#include "CatalogueTest.h"
#include "FakeConnectors.h"
#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerProduct.h"
#include "gateways/DovelAPI.h"
#include "platform/xml/XmlDocument.h"
#include "stores/SellerTax.h"
#include "stores/ZorvantaMinistore.h"

#include <deque>
#include <map>

namespace {

// The demo seller's ERP in process: its catalogue functions answer from queues (code 0 and an
// empty reply when nothing is queued) and record how they were called.
class ScriptedErp : public FakeErp
{
public:
    struct Call
    {
        std::string function;
        std::int32_t productType;
        std::string text; // the category id, the search text or the detail's key
        std::string position;
        std::int32_t direction;
        std::string ministoreId;
    };
    void queue(const std::string &function, std::int32_t code, std::string reply,
               std::string position = {})
    {
        m_answers[function].push_back({code, std::move(reply), std::move(position)});
    }
    std::size_t callsOf(const std::string &function) const
    {
        return std::count_if(calls.begin(), calls.end(),
                             [&](const Call &call) { return call.function == function; });
    }
    std::int32_t ObtenerContenidoCategoria(std::int32_t type, char *id, std::int32_t,
                                           char *position, std::int32_t direction,
                                           const char *store, std::int32_t *, char *reply) override
    {
        return answer({"ObtenerContenidoCategoria", type, id, position, direction, store},
                      position, reply);
    }
    std::int32_t BusquedaProductosIndividual(std::int32_t type, std::int32_t, char *text,
                                             std::int32_t, char *lastId, std::int32_t direction,
                                             const char *store, std::int32_t *,
                                             char *reply) override
    {
        return answer({"BusquedaProductosIndividual", type, text, lastId, direction, store},
                      lastId, reply);
    }
    std::int32_t ObtenerDefinicionProducto(std::int32_t type, const char *key, const char *store,
                                           char *reply) override
    {
        return answer({"ObtenerDefinicionProducto", type, key, "", 0, store}, nullptr, reply);
    }

    std::vector<Call> calls;

private:
    struct Answer
    {
        std::int32_t code;
        std::string reply;
        std::string position;
    };
    std::int32_t answer(Call call, char *position, char *reply)
    {
        std::deque<Answer> &queued = m_answers[call.function];
        const Answer next = queued.empty() ? Answer{0, "", ""} : queued.front();
        if (!queued.empty())
            queued.pop_front();
        calls.push_back(std::move(call));
        next.position.copy(position, next.position.size());
        reply[next.reply.copy(reply, DovelAPI::kReplySize - 1)] = '\0';
        return next.code;
    }
    std::map<std::string, std::deque<Answer>> m_answers;
};

// A line of a list of the layer above, recording what the list gave it.
struct RecordingLine : ProductLine
{
    void setXml(const XmlNode &node) override { xml = node.xml(); }
    std::shared_ptr<SellerProduct> sellerProduct() override { return nullptr; }
    std::int32_t ClassDebugID() const override { return 0; }
    std::string xml;
    std::int16_t productType = 0;
    std::shared_ptr<ZorvantaMinistore> ministore;
};

std::string lines(int first, int last)
{
    std::string xml;
    for (int n = first; n <= last; ++n)
        xml += "<Producto><CodigoDovel>P-" + std::to_string(n) +
               "</CodigoDovel><Descripcion>"
               "Artículo</Descripcion></Producto>";
    return xml;
}

std::string categoryReply(const std::string &products)
{
    return "<ObtenerContenidoCategoria><CategoriaActual nombre='F' id='C'/><Categorias>"
           "<Categoria nombre='Uno' id='C1'/><Categoria nombre='Dos' id='C2'/></Categorias>"
           "<Productos>" +
           products + "</Productos></ObtenerContenidoCategoria>";
}

std::string searchReply(const std::string &products)
{
    return "<BusquedaProductosIndividual><Productos>" + products +
           "</Productos></BusquedaProductosIndividual>";
}

std::shared_ptr<ZorvantaMinistore> ministore(const std::string &id)
{
    XmlDocument store;
    store.loadXML("<Store><StoreID>" + id +
                  "</StoreID><Name>T</Name><NumberOfProducts>0"
                  "</NumberOfProducts><MaxProducts>9</MaxProducts><ProductID>1</ProductID>"
                  "<Status>A</Status></Store>");
    auto made = std::make_shared<ZorvantaMinistore>();
    made->setXml(store.documentElement(), store.documentElement());
    return made;
}

class ErpCatalogueTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        setErpLibrary(erp);
    }
    void TearDown() override
    {
        ProductLine::registerFactory(1, nullptr);
        setErpLibrary(nullptr);
        CatalogueTest::TearDown();
    }
    std::shared_ptr<ScriptedErp> erp = std::make_shared<ScriptedErp>();
};

constexpr const char *kContents = "ObtenerContenidoCategoria";
constexpr const char *kSearch = "BusquedaProductosIndividual";
constexpr const char *kDetail = "ObtenerDefinicionProducto";

} // namespace

TEST_F(ErpCatalogueTest, aCategoryEndsWhereTheErpsCodeSaysAndThenStillAsksIt)
{
    const std::tuple<const char *, std::int32_t, bool, const char *> rows[] = {
        {"an ordinary page", 0, true, "False"},
        {"102 forwards is the end", 102, true, "True"},
        {"102 backwards is an ordinary page", 102, false, "False"},
        {"101 backwards is the start of the list", 101, false, "True"},
        {"103 is both ends at once", 103, true, "True"},
        {"6007 shows the children and no products", 6007, true, "True"},
    };
    for (const auto &[what, code, forward, allRead] : rows) {
        SCOPED_TRACE(what);
        erp->queue(kContents, code, categoryReply(lines(1, 2)));
        DovelCategory category;
        category.setForward(forward);
        category.StartQuery();
        EXPECT_EQ(category.allRead(), allRead);
        EXPECT_EQ(category.products()->count(), code == 6007 ? 0 : 2);
        EXPECT_EQ(idsOf(category.children()), (Texts{"C1", "C2"}));
        EXPECT_EQ(erp->calls.back().direction, forward ? 0 : 1);
        // A category asks again even after its end, and an ended walk reads nothing more.
        const std::size_t asked = erp->calls.size();
        erp->queue(kContents, 0, categoryReply(lines(3, 4)));
        category.GetMore();
        EXPECT_EQ(erp->calls.size(), asked + 1);
        EXPECT_EQ(category.allRead(), allRead);
        EXPECT_EQ(category.products()->count(), std::string(allRead) == "True" ? 0 : 2);
    }
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ErpCatalogueTest, aSearchEndsWhereTheErpsCodeSaysByDirectionAndThenAsksNoMore)
{
    const std::tuple<const char *, std::int32_t, bool, std::int16_t> rows[] = {
        {"102 forwards is the end", 102, true, -1},
        {"102 backwards is an ordinary page", 102, false, 0},
        {"101 backwards is the start", 101, false, -1},
        {"103 is the whole list", 103, false, -1},
        {"8002: nothing found", 8002, true, -1},
        {"8007: too broad, the first page is shown and ends it", 8007, true, -1},
    };
    for (const auto &[what, code, forward, allRead] : rows) {
        SCOPED_TRACE(what);
        erp->queue(kSearch, code, searchReply(lines(1, 3)));
        ProductBrowser browser;
        browser.setForward(forward);
        browser.StartQuery();
        EXPECT_EQ(browser.allRead(), allRead);
        EXPECT_EQ(browser.products()->count(), 3) << "the last page has products too";
        EXPECT_EQ(erp->calls.back().direction, forward ? 0 : 1);
        const std::size_t asked = erp->calls.size();
        browser.GetMore();
        EXPECT_EQ(erp->calls.size(), asked + (allRead == 0 ? 1 : 0));
    }
}

TEST_F(ErpCatalogueTest, theErpIsToldWhereItsLastPageEndedUntilTheWalkStartsAgain)
{
    erp->queue(kContents, 0, categoryReply(lines(1, 50)), "C|P-1|P-50");
    DovelCategory category;
    category.setId("C");
    category.setMinistore(ministore("200"));
    category.StartQuery();
    category.GetMore();
    category.StartQuery();
    Texts positions;
    for (const auto &call : erp->calls) {
        positions.push_back(call.position);
        EXPECT_EQ(call.text, "C");
        EXPECT_EQ(call.ministoreId, "200");
    }
    EXPECT_EQ(positions, (Texts{"", "C|P-1|P-50", ""}));
}

TEST_F(ErpCatalogueTest, aBadPageIsReportedAndOnlyAFailedCallIsFatal)
{
    erp->queue(kSearch, 0, "<Busqueda>");
    ProductBrowser().StartQuery();
    EXPECT_EQ(loggedErrors(), Texts{"Error: -10500 (ProductBrowser:getMore): El XML retornado por "
                                    "APIDovel.BusquedaProductosIndividual está mal construido "
                                    "<Busqueda>"});
    EXPECT_TRUE(gAppRunning);

    restart();
    erp->queue(kContents, 6001, categoryReply(""));
    DovelCategory().StartQuery();
    EXPECT_EQ(loggedErrors(),
              Texts{"Error: -11001 (DovelCategory:getMore): La función "
                    "APIDovel.ObtenerContenidoCategoria retornó con error 6001"});
    EXPECT_FALSE(gAppRunning);
}

TEST_F(ErpCatalogueTest, eachLineIsWhatTheFactoryOfTheListsTypeMakes)
{
    DovelCategory category;
    category.setProductType(1);
    ProductLine::registerFactory(1, [](const XmlNode &node, std::int16_t type,
                                       const std::shared_ptr<ZorvantaMinistore> &store) {
        auto line = std::make_shared<RecordingLine>();
        line->setXml(node);
        line->productType = type;
        line->ministore = store;
        return std::shared_ptr<ProductLine>(line);
    });
    erp->queue(kContents, 0, categoryReply(lines(1, 2)));
    category.setMinistore(ministore("100"));
    category.StartQuery();
    ASSERT_EQ(category.products()->count(), 2);
    const auto line = std::dynamic_pointer_cast<RecordingLine>(category.products()->item(2));
    EXPECT_EQ(line->xml, "<Producto><CodigoDovel>P-2</CodigoDovel><Descripcion>Artículo"
                         "</Descripcion></Producto>");
    EXPECT_EQ(line->productType, 1);
    EXPECT_EQ(line->ministore, category.ministore());
    EXPECT_EQ(erp->calls.back().productType, 1);
}

TEST_F(ErpCatalogueTest, aProductsDetailIsReadOnFirstUseAndAskedForAgainAfterAFailure)
{
    erp->queue(kSearch, 103, searchReply(lines(7, 7)));
    ProductBrowser browser;
    browser.StartQuery();
    const auto product = browser.products()->item(1)->sellerProduct();
    EXPECT_EQ(product->Description(), "Artículo");
    EXPECT_EQ(product->Reference(), "");
    EXPECT_EQ(erp->callsOf(kDetail), 0u);

    erp->queue(kDetail, 0, "<ObtenerDefinicionProducto>");
    erp->queue(kDetail, 0,
               "<ObtenerDefinicionProducto><Precio1>89.90</Precio1><Precio2>80"
               "</Precio2><Precio3>71.9</Precio3><Impuesto CodigoImpuesto='IVA'>"
               "<Cantidad>16</Cantidad><TipoMonto>0</TipoMonto></Impuesto>"
               "</ObtenerDefinicionProducto>");
    EXPECT_EQ(product->price1(), "");
    EXPECT_EQ(loggedErrors(),
              Texts{"Error: -10500 (SellerProduct:getDetailInformation): El XML retornado por "
                    "APIDovel.ObtenerDefinicionProducto está mal construido: "
                    "<ObtenerDefinicionProducto> para el idDovel: P-7"});
    EXPECT_EQ(product->price1(), "89.90");
    EXPECT_EQ(product->price3(), "71.9");
    EXPECT_EQ(product->taxes()->item(1)->id(), "IVA");
    EXPECT_EQ(erp->callsOf(kDetail), 2u);
    EXPECT_EQ(erp->calls.back().text, "P-7");
    EXPECT_EQ(erp->calls.back().productType, 0);
}
