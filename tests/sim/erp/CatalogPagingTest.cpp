#include "Erp.h"
#include "ErpSandbox.h"
#include "platform/connectors/ConnectorAbi.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using Texts = std::vector<std::string>;

// A thousand products in one category beside two subcategories, and a small category whose
// products have accents, and one of them no reference; the ERP searches no more than 1000.
class ErpPagingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const char *prices = "precioLista='1' precioPromocion='1' precioMayorista='1'";
        m_sandbox.writeData(
            "<Categoria id='C-BIG' nombre='Grande'><Categoria id='C-SUB1' nombre='Sub uno'/>"
            "<Categoria id='C-SUB2' nombre='Sub dos'/>" +
                ErpSandbox::products(1000) +
                "</Categoria><Categoria id='C-CAFE' nombre='Café &amp; té'>"
                "<Producto id='K-01' descripcion='Cafetera Espresso' referencia='ESP-9' " +
                prices + "/><Producto id='K-02' descripcion='Café molido' referencia='MOL-1' " +
                prices + "/><Producto id='K-03' descripcion='Té verde' " + prices +
                "/></Categoria>",
            "", "limiteBusqueda='1000'");
    }

    // Reads `pages` pages and checks the code of each: `last` on the final one, 0 before.
    static Texts walk(Erp::Query &query, bool forward, int pages, int last)
    {
        Texts seen;
        for (int page = 1; page <= pages; ++page) {
            const Erp::Reply reply = Erp::page(query, forward);
            EXPECT_EQ(reply.code, page < pages ? 0 : last) << "page " << page;
            EXPECT_TRUE(reply.guardIntact);
            const Texts ids = reply.productIds();
            seen.insert(forward ? seen.end() : seen.begin(), ids.begin(), ids.end());
        }
        return seen;
    }

    static Texts ids(int first, int last)
    {
        Texts result;
        for (int i = first; i <= last; ++i) {
            const std::string number = std::to_string(i);
            result.push_back("P-" + std::string(4 - number.size(), '0') + number);
        }
        return result;
    }

    ErpSandbox m_sandbox;
};

} // namespace

TEST_F(ErpPagingTest, aCategoryOfAThousandIsReadInPagesOfFiftyAndEndsOnlyWith6007)
{
    auto query = Erp::categoryQuery(0, "C-BIG");
    EXPECT_EQ(walk(query, true, 20, 0), ids(1, 1000));
    const Erp::Reply end = Erp::page(query);
    EXPECT_EQ(end.code, 6007);
    EXPECT_TRUE(end.productIds().empty());
    EXPECT_EQ(end.texts("//Categoria/@id"), (Texts{"C-SUB1", "C-SUB2"})) << "children still come";
    EXPECT_EQ(Erp::page(query).code, 6007) << "asking again stays at the end";

    // Turning round goes back from the last page given.
    EXPECT_EQ(walk(query, false, 19, 0), ids(1, 950));
    EXPECT_EQ(Erp::page(query, false).code, 6007);

    auto root = Erp::categoryQuery(0, "");
    const Erp::Reply rootPage = Erp::page(root);
    EXPECT_EQ(rootPage.code, 6007) << "a category without products ends at once";
    EXPECT_EQ(rootPage.texts("//Categorias/Categoria/@nombre"), (Texts{"Grande", "Café & té"}));
}

TEST_F(ErpPagingTest, aSearchEndsWith102ForwardsAnd101Backwards)
{
    auto query = Erp::searchQuery(0, 1, "P-");
    EXPECT_EQ(walk(query, true, 20, 102), ids(1, 1000));
    EXPECT_EQ(walk(query, false, 19, 101), ids(1, 950));
    EXPECT_EQ(Erp::page(query).code, 0) << "from the start, forward is an ordinary page";

    auto fromTheEnd = Erp::searchQuery(0, 1, "P-");
    EXPECT_EQ(Erp::page(fromTheEnd, false).productIds(), ids(951, 1000));

    // Over the ERP's limit, the first page comes with 8007.
    auto everything = Erp::searchQuery(0, 1, "");
    const Erp::Reply overTheLimit = Erp::page(everything);
    EXPECT_EQ(overTheLimit.code, 8007);
    EXPECT_EQ(overTheLimit.productIds().size(), 50u);
}

TEST_F(ErpPagingTest, eachKindOfSearchFindsWhatTheUserTyped)
{
    const std::tuple<const char *, int, const char *, Texts> searches[] = {
        {"a code search finds codes beginning with the text", 1, "k-0", {"K-01", "K-02", "K-03"}},
        {"a code is not found by its middle", 1, "01", {}},
        {"a description search ignores case and accents", 2, "CAFE", {"K-01", "K-02"}},
        {"blanks around the text are dropped", 2, "  verde ", {"K-03"}},
        {"a reference search finds part of a reference", 3, "esp", {"K-01"}},
        {"a product without a reference is not found by reference", 3, "K-03", {}},
    };
    for (const auto &[what, queryType, text, found] : searches) {
        auto query = Erp::searchQuery(0, queryType, text);
        const Erp::Reply reply = Erp::page(query);
        EXPECT_EQ(reply.productIds(), found) << what;
        EXPECT_EQ(reply.code, found.empty() ? 8002 : 103) << what;
        EXPECT_TRUE(reply.document.select_node("/BusquedaProductosIndividual/Productos")) << what;
    }
}

TEST_F(ErpPagingTest, whatTheFunctionsCannotAnswerIsACodeWithAnEmptyReply)
{
    auto badType = Erp::categoryQuery(7, "C-BIG");
    auto unknown = Erp::categoryQuery(0, "C-NONE");
    auto badQuery = Erp::searchQuery(0, 4, "x");
    auto badSize = Erp::searchQuery(0, 1, "x");
    badSize.querySize = 0;
    for (const auto &[code, reply] :
         {std::pair{8001, Erp::page(badType)}, std::pair{6001, Erp::page(unknown)},
          std::pair{8001, Erp::page(badQuery)}, std::pair{8001, Erp::page(badSize)},
          std::pair{8001, Erp::definition(5, "P-0001")},
          std::pair{6002, Erp::definition(0, "P-9999")}}) {
        EXPECT_EQ(reply.code, code);
        EXPECT_EQ(reply.text, "");
    }
    char buffer[256] = {};
    EXPECT_EQ(ObtenerImpuestos(nullptr), 8001) << "a caller without a reply buffer";
    EXPECT_EQ(ObtenerIDCliente(nullptr, buffer, buffer, buffer), 8001);
}
