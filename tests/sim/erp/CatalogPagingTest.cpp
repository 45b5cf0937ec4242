#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// A thousand products in one category, with two subcategories beside them, and a small
// category of three products with accents and one without a reference.
std::string catalogue()
{
    return "<Categoria id='C-BIG' nombre='Grande'>"
           "<Categoria id='C-SUB1' nombre='Sub uno'/><Categoria id='C-SUB2' nombre='Sub dos'/>" +
           ErpSandbox::products(1000) +
           "</Categoria>"
           "<Categoria id='C-CAFE' nombre='Café &amp; té'>"
           "<Producto id='K-01' descripcion='Cafetera Espresso' referencia='ESP-9' "
           "precioLista='1' precioPromocion='1' precioMayorista='1'/>"
           "<Producto id='K-02' descripcion='Café molido tostado' referencia='MOL-1' "
           "precioLista='1' precioPromocion='1' precioMayorista='1'/>"
           "<Producto id='K-03' descripcion='Té verde' "
           "precioLista='1' precioPromocion='1' precioMayorista='1'/>"
           "</Categoria>";
}

class ErpPagingTest : public ::testing::Test
{
protected:
    void SetUp() override { m_sandbox.writeData(catalogue()); }

    std::vector<std::string> allIds() const
    {
        std::vector<std::string> ids;
        for (int i = 1; i <= 1000; ++i) {
            const std::string number = std::to_string(i);
            ids.push_back("P-" + std::string(4 - number.size(), '0') + number);
        }
        return ids;
    }

    ErpSandbox m_sandbox;
    ErpLibrary m_erp;
};

} // namespace

TEST_F(ErpPagingTest, aCategoryOfAThousandIsReadInPagesOfFiftyAndEndsOnlyWith6007)
{
    auto query = ErpLibrary::categoryQuery(0, "C-BIG");
    std::vector<std::string> seen;
    for (int page = 1; page <= 20; ++page) {
        const ErpLibrary::Reply reply = m_erp.categoryContents(query);
        ASSERT_EQ(reply.code, 0) << "page " << page;
        ASSERT_TRUE(reply.guardIntact);
        EXPECT_EQ(reply.count, 50);
        EXPECT_EQ(reply.document.select_nodes("//Categoria").size(), 2u);
        const auto ids = reply.productIds();
        seen.insert(seen.end(), ids.begin(), ids.end());
    }
    EXPECT_EQ(seen, allIds());

    const ErpLibrary::Reply end = m_erp.categoryContents(query);
    EXPECT_EQ(end.code, 6007);
    EXPECT_TRUE(end.productIds().empty());
    EXPECT_EQ(end.document.select_nodes("//Categoria").size(), 2u) << "children still come";
    EXPECT_EQ(m_erp.categoryContents(query).code, 6007) << "asking again stays at the end";

    // Turning round goes back from the last page given, not from past it.
    std::vector<std::string> back;
    for (int page = 1; page <= 19; ++page) {
        const ErpLibrary::Reply reply = m_erp.categoryContents(query, false);
        ASSERT_EQ(reply.code, 0) << "page back " << page;
        const auto ids = reply.productIds();
        back.insert(back.begin(), ids.begin(), ids.end());
    }
    const std::vector<std::string> ids = allIds();
    EXPECT_EQ(back, std::vector<std::string>(ids.begin(), ids.end() - 50));
    EXPECT_EQ(m_erp.categoryContents(query, false).code, 6007);
}

TEST_F(ErpPagingTest, aCategoryWithoutProductsAnswers6007AtOnceWithItsChildren)
{
    auto root = ErpLibrary::categoryQuery(0, "");
    const ErpLibrary::Reply reply = m_erp.categoryContents(root);
    EXPECT_EQ(reply.code, 6007);
    const pugi::xml_node current = reply.document.select_node("//CategoriaActual").node();
    EXPECT_STREQ(current.attribute("nombre").value(), "Catálogo general");
    ASSERT_TRUE(current.attribute("id"));
    EXPECT_STREQ(current.attribute("id").value(), "");
    EXPECT_EQ(reply.document.select_nodes("//Categorias/Categoria").size(), 2u);
    EXPECT_STREQ(reply.document.select_node("//Categoria[@id='C-CAFE']").node()
                     .attribute("nombre").value(),
                 "Café & té");
}

TEST_F(ErpPagingTest, anUnknownCategoryIsAnErrorWithAnEmptyReply)
{
    auto query = ErpLibrary::categoryQuery(0, "C-NONE");
    const ErpLibrary::Reply reply = m_erp.categoryContents(query);
    EXPECT_EQ(reply.code, 6001);
    EXPECT_EQ(reply.text, "");
}

TEST_F(ErpPagingTest, aSearchEndsWith102ForwardsAnd101Backwards)
{
    auto query = ErpLibrary::searchQuery(0, 1, "P-");
    std::vector<std::string> seen;
    for (int page = 1; page <= 20; ++page) {
        const ErpLibrary::Reply reply = m_erp.search(query);
        ASSERT_EQ(reply.code, page < 20 ? 0 : 102) << "page " << page;
        ASSERT_TRUE(reply.guardIntact);
        const auto ids = reply.productIds();
        seen.insert(seen.end(), ids.begin(), ids.end());
    }
    EXPECT_EQ(seen, allIds());
    EXPECT_EQ(std::strlen(query.position.data()), std::string("P-0951|P-1000").size());

    std::vector<std::string> back;
    for (int page = 1; page <= 19; ++page) {
        const ErpLibrary::Reply reply = m_erp.search(query, false);
        ASSERT_EQ(reply.code, page < 19 ? 0 : 101) << "page back " << page;
        const auto ids = reply.productIds();
        back.insert(back.begin(), ids.begin(), ids.end());
    }
    const std::vector<std::string> ids = allIds();
    const std::vector<std::string> expected(ids.begin(), ids.end() - 50);
    EXPECT_EQ(back, expected);

    // At the start, going forward again is an ordinary page.
    EXPECT_EQ(m_erp.search(query).code, 0);
}

TEST_F(ErpPagingTest, aSearchStartedBackwardsBeginsAtTheEndOfTheList)
{
    auto query = ErpLibrary::searchQuery(0, 2, "artículo");
    const ErpLibrary::Reply reply = m_erp.search(query, false);
    EXPECT_EQ(reply.code, 0);
    EXPECT_EQ(reply.productIds().back(), "P-1000");
    EXPECT_EQ(reply.productIds().front(), "P-0951");
}

TEST_F(ErpPagingTest, eachKindOfSearchFindsWhatTheUserTyped)
{
    struct Row
    {
        const char *what;
        int queryType;
        const char *text;
        std::vector<std::string> found;
    };
    const std::vector<Row> rows = {
        {"a code search finds the codes that begin with the text", 1, "k-0", {"K-01", "K-02", "K-03"}},
        {"a code is not found by its middle", 1, "01", {}},
        {"a description search ignores case and accents", 2, "CAFE", {"K-01", "K-02"}},
        {"a description search finds words inside", 2, "verde", {"K-03"}},
        {"blanks around the text are dropped", 2, "  molido ", {"K-02"}},
        {"a reference search finds part of a reference", 3, "esp", {"K-01"}},
        {"a product without a reference is not found by reference", 3, "K-03", {}},
    };
    for (const Row &row : rows) {
        auto query = ErpLibrary::searchQuery(0, row.queryType, row.text);
        const ErpLibrary::Reply reply = m_erp.search(query);
        EXPECT_EQ(reply.productIds(), row.found) << row.what;
        EXPECT_EQ(reply.code, row.found.empty() ? 8002 : 103) << row.what;
    }
}

TEST_F(ErpPagingTest, aProductWithoutReferenceHasNoReferenceElement)
{
    auto query = ErpLibrary::categoryQuery(0, "C-CAFE");
    const ErpLibrary::Reply reply = m_erp.categoryContents(query);
    ASSERT_EQ(reply.code, 0);
    EXPECT_FALSE(reply.document.select_node("//Producto[CodigoDovel='K-03']/Referencia"));
    EXPECT_STREQ(reply.document.select_node("//Producto[CodigoDovel='K-01']/Referencia")
                     .node().text().get(),
                 "ESP-9");
    EXPECT_STREQ(reply.document.select_node("//Productos").node().attribute("NumeroProductos")
                     .value(),
                 "3");
}

TEST_F(ErpPagingTest, aSearchThatFindsNothingAnswers8002WithAnEmptyList)
{
    auto query = ErpLibrary::searchQuery(0, 2, "inexistente");
    const ErpLibrary::Reply reply = m_erp.search(query);
    EXPECT_EQ(reply.code, 8002);
    ASSERT_TRUE(reply.parsed);
    EXPECT_TRUE(reply.document.select_node("/BusquedaProductosIndividual/Productos"));
    EXPECT_EQ(reply.count, 0);
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
    EXPECT_EQ(reply.productIds().front(), "P-0001");

    auto narrow = ErpLibrary::searchQuery(0, 1, "P-00");
    EXPECT_EQ(erp.search(narrow).code, 0) << "99 products are within the limit";
}

TEST_F(ErpPagingTest, argumentsTheFunctionsCannotTakeAnswer8001)
{
    auto badType = ErpLibrary::categoryQuery(7, "C-BIG");
    EXPECT_EQ(m_erp.categoryContents(badType).code, 8001);
    auto badQuery = ErpLibrary::searchQuery(0, 4, "x");
    EXPECT_EQ(m_erp.search(badQuery).code, 8001);
    auto badSize = ErpLibrary::searchQuery(0, 1, "x");
    badSize.querySize = 0;
    EXPECT_EQ(m_erp.search(badSize).code, 8001);
    EXPECT_EQ(m_erp.definition(5, "P-0001").code, 8001);
    EXPECT_EQ(m_erp.definition(0, "P-9999").code, 6002);
}
