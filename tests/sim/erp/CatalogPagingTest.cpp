#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

// A thousand products in one category beside two subcategories, and a small category whose
// products have accents, and one of them no reference.
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
            prices + "/><Producto id='K-03' descripcion='Té verde' " + prices + "/></Categoria>");
    }

    // Reads `pages` pages and checks the code of each: `last` on the final one, 0 before.
    Texts walk(ErpLibrary::Query &query, bool forward, int pages, int last, bool search)
    {
        Texts seen;
        for (int page = 1; page <= pages; ++page) {
            const ErpLibrary::Reply reply =
                search ? m_erp.search(query, forward) : m_erp.categoryContents(query, forward);
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
    ErpLibrary m_erp;
};

} // namespace

TEST_F(ErpPagingTest, aCategoryOfAThousandIsReadInPagesOfFiftyAndEndsOnlyWith6007)
{
    auto query = ErpLibrary::categoryQuery(0, "C-BIG");
    EXPECT_EQ(walk(query, true, 20, 0, false), ids(1, 1000));
    const ErpLibrary::Reply end = m_erp.categoryContents(query);
    EXPECT_EQ(end.code, 6007);
    EXPECT_TRUE(end.productIds().empty());
    EXPECT_EQ(end.texts("//Categoria/@id"), (Texts{"C-SUB1", "C-SUB2"})) << "children still come";
    EXPECT_EQ(m_erp.categoryContents(query).code, 6007) << "asking again stays at the end";

    // Turning round goes back from the last page given.
    EXPECT_EQ(walk(query, false, 19, 0, false), ids(1, 950));
    EXPECT_EQ(m_erp.categoryContents(query, false).code, 6007);
}

TEST_F(ErpPagingTest, aCategoryWithoutProductsAnswers6007AtOnceWithItsChildren)
{
    auto root = ErpLibrary::categoryQuery(0, "");
    const ErpLibrary::Reply reply = m_erp.categoryContents(root);
    EXPECT_EQ(reply.code, 6007);
    EXPECT_EQ(reply.texts("//CategoriaActual/@nombre | //CategoriaActual/@id"),
              (Texts{"Catálogo general", ""}));
    EXPECT_EQ(reply.texts("//Categorias/Categoria/@nombre"), (Texts{"Grande", "Café & té"}));
}

TEST_F(ErpPagingTest, aSearchEndsWith102ForwardsAnd101Backwards)
{
    auto query = ErpLibrary::searchQuery(0, 1, "P-");
    EXPECT_EQ(walk(query, true, 20, 102, true), ids(1, 1000));
    EXPECT_EQ(walk(query, false, 19, 101, true), ids(1, 950));
    EXPECT_EQ(m_erp.search(query).code, 0) << "from the start, forward is an ordinary page";

    auto fromTheEnd = ErpLibrary::searchQuery(0, 1, "P-");
    EXPECT_EQ(m_erp.search(fromTheEnd, false).productIds(), ids(951, 1000));
}

TEST_F(ErpPagingTest, eachKindOfSearchFindsWhatTheUserTyped)
{
    struct Row
    {
        const char *what;
        int queryType;
        const char *text;
        Texts found;
    };
    for (const Row &row : {
             Row{"a code search finds codes beginning with the text",
                 1,
                 "k-0",
                 {"K-01", "K-02", "K-03"}},
             Row{"a code is not found by its middle", 1, "01", {}},
             Row{"a description search ignores case and accents", 2, "CAFE", {"K-01", "K-02"}},
             Row{"blanks around the text are dropped", 2, "  verde ", {"K-03"}},
             Row{"a reference search finds part of a reference", 3, "esp", {"K-01"}},
             Row{"a product without a reference is not found by reference", 3, "K-03", {}},
         }) {
        auto query = ErpLibrary::searchQuery(0, row.queryType, row.text);
        const ErpLibrary::Reply reply = m_erp.search(query);
        EXPECT_EQ(reply.productIds(), row.found) << row.what;
        EXPECT_EQ(reply.code, row.found.empty() ? 8002 : 103) << row.what;
        EXPECT_TRUE(reply.document.select_node("/BusquedaProductosIndividual/Productos"));
    }
    auto coffee = ErpLibrary::categoryQuery(0, "C-CAFE");
    EXPECT_EQ(m_erp.categoryContents(coffee).texts("//Referencia"), (Texts{"ESP-9", "MOL-1"}))
        << "a product without a reference has no element for it";
}

TEST(ErpSearchLimitTest, aSearchOverTheErpsLimitGivesItsFirstPageWith8007)
{
    ErpSandbox sandbox;
    sandbox.writeData(ErpSandbox::products(300), "", "limiteBusqueda='200'");
    ErpLibrary erp;
    auto broad = ErpLibrary::searchQuery(0, 1, "P-");
    const ErpLibrary::Reply reply = erp.search(broad);
    EXPECT_EQ(reply.code, 8007);
    EXPECT_EQ(reply.productIds().size(), 50u);
    auto narrow = ErpLibrary::searchQuery(0, 1, "P-00");
    EXPECT_EQ(erp.search(narrow).code, 0) << "99 products are within the limit";
}

TEST_F(ErpPagingTest, whatTheFunctionsCannotAnswerIsACodeWithAnEmptyReply)
{
    auto badType = ErpLibrary::categoryQuery(7, "C-BIG");
    auto unknown = ErpLibrary::categoryQuery(0, "C-NONE");
    auto badQuery = ErpLibrary::searchQuery(0, 4, "x");
    auto badSize = ErpLibrary::searchQuery(0, 1, "x");
    badSize.querySize = 0;
    for (const auto &[code, reply] :
         {std::pair{8001, m_erp.categoryContents(badType)},
          std::pair{6001, m_erp.categoryContents(unknown)},
          std::pair{8001, m_erp.search(badQuery)}, std::pair{8001, m_erp.search(badSize)},
          std::pair{8001, m_erp.definition(5, "P-0001")},
          std::pair{6002, m_erp.definition(0, "P-9999")}}) {
        EXPECT_EQ(reply.code, code);
        EXPECT_EQ(reply.text, "");
    }
}
