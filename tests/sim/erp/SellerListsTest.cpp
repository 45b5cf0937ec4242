#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

namespace {

const char *const kCharacteristic =
    "<Properties/><VariantProperties><Field fieldID=\"Color\"><![CDATA[Rojo]]></Field>"
    "</VariantProperties>";
const char *const kNonCharacteristic =
    "<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[10.50]]></Field></Properties>"
    "<VariantProperties/>";

// Associations 1 to 3 on ERP products of two categories, and 4 on a product the ERP no longer
// has; publication 10 in MT-100 (confirmed, with a pending modification that failed) and 11 in
// MT-200 (local, waiting to be published).
class ErpSellerListsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_sandbox.writeData("<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(2, "A-") +
                            "</Categoria><Categoria id='C-B' nombre='B'>" +
                            ErpSandbox::products(1, "B-") + "</Categoria>");
        m_sandbox.createSellerTables();
        m_sandbox.execute(
            std::string("INSERT INTO WIPRODASOC VALUES (1, 'A-0001', 'ZP-00001', '") +
            kCharacteristic +
            "', '2026-01-10 09:00:00');"
            "INSERT INTO WIPRODASOC VALUES (2, 'A-0002', 'ZP-00002', "
            "'<Properties/><VariantProperties/>', '2026-01-11 09:30:00');"
            "INSERT INTO WIPRODASOC VALUES (3, 'B-0001', 'ZP-00003', "
            "'<Properties/><VariantProperties/>', '2026-01-12 10:00:00');"
            "INSERT INTO WIPRODASOC VALUES (4, 'X-GONE', 'ZP-00004', '', '2026-01-12 10:00:00');"
            "INSERT INTO WIPRODPUBL VALUES (10, 1, 'MT-100', 'K', '" +
            kNonCharacteristic +
            "', '2026-02-01 10:00:00');"
            "INSERT INTO WIPRODPUBL VALUES (11, 2, 'MT-200', 'L', '', '2026-02-03 11:00:00');"
            "INSERT INTO WIPRODPEND VALUES (11, 2, 'MT-200', 'I', '', '2026-02-03 11:00:00', 0, "
            "NULL, NULL);"
            "INSERT INTO WIPRODPEND VALUES (10, 1, 'MT-100', 'A', '" +
            kNonCharacteristic +
            "', '2026-02-02 08:05:09', 2, 'Precio fuera de rango', -20);");
    }

    std::vector<std::string> texts(const ErpLibrary::Reply &reply, const char *element) const
    {
        std::vector<std::string> result;
        for (const pugi::xpath_node node :
             reply.document.select_nodes((std::string("//Producto/") + element).c_str())) {
            result.emplace_back(node.node().text().get());
        }
        return result;
    }

    ErpSandbox m_sandbox;
    ErpLibrary m_erp;
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(ErpSellerListsTest, associatedProductsAreListedWithTheirMarketplaceProductInAnyStore)
{
    auto query = ErpLibrary::searchQuery(1, 1, "");
    query.ministoreId = "MT-300";
    const ErpLibrary::Reply reply = m_erp.search(query);
    ASSERT_EQ(reply.code, 103);
    EXPECT_EQ(reply.productIds(), (Texts{"A-0001", "A-0002", "B-0001"}))
        << "an association whose ERP product is gone is not listed";
    EXPECT_EQ(texts(reply, "CodigoAsociacion"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(texts(reply, "CodigoZorvanta"), (Texts{"ZP-00001", "ZP-00002", "ZP-00003"}));
    EXPECT_TRUE(texts(reply, "CodigoPublicacion").empty());
}

TEST_F(ErpSellerListsTest, aListLineNeverCarriesTheAttributes)
{
    // The program looks for the attribute elements anywhere in the document to tell a
    // detail from a list, so a list must hold none.
    for (int type : {1, 2, 3}) {
        auto query = ErpLibrary::searchQuery(type, 1, "");
        const ErpLibrary::Reply reply = m_erp.search(query);
        EXPECT_FALSE(reply.document.select_node("//AtributosCaracteristicos")) << type;
        EXPECT_FALSE(reply.document.select_node("//AtributosNoCaracteristicos")) << type;
        EXPECT_FALSE(reply.document.select_node("//ObtenerDefinicionProducto")) << type;
    }
}

TEST_F(ErpSellerListsTest, aCategoryListsOnlyTheAssociationsOfItsOwnProducts)
{
    auto query = ErpLibrary::categoryQuery(1, "C-B");
    const ErpLibrary::Reply reply = m_erp.categoryContents(query);
    EXPECT_EQ(reply.code, 0);
    EXPECT_EQ(texts(reply, "CodigoAsociacion"), (Texts{"3"}));
    EXPECT_EQ(m_erp.categoryContents(query).code, 6007);
}

TEST_F(ErpSellerListsTest, publishedProductsAreNarrowedToTheChosenMinistore)
{
    struct Row
    {
        const char *what;
        const char *ministore;
        Texts publications;
    };
    for (const Row &row : {Row{"store MT-100", "MT-100", {"10"}},
                           Row{"store MT-200", "MT-200", {"11"}},
                           Row{"a store id as the server compares it", "mt-100 ", {"10"}},
                           Row{"no store given", "", {"10", "11"}},
                           Row{"a store with nothing", "MT-300", {}}}) {
        auto query = ErpLibrary::searchQuery(2, 2, "");
        query.ministoreId = row.ministore;
        const ErpLibrary::Reply reply = m_erp.search(query);
        EXPECT_EQ(texts(reply, "CodigoPublicacion"), row.publications) << row.what;
    }
    auto query = ErpLibrary::searchQuery(2, 1, "A-0001");
    const ErpLibrary::Reply reply = m_erp.search(query);
    EXPECT_EQ(texts(reply, "StoreID"), (Texts{"MT-100"}));
    EXPECT_EQ(texts(reply, "Estado"), (Texts{"K"}));
    EXPECT_EQ(texts(reply, "FechaPublicacion"), (Texts{"2026-02-01 10:00:00"}));
    EXPECT_EQ(texts(reply, "CodigoAsociacion"), (Texts{"1"}));
}

TEST_F(ErpSellerListsTest, pendingOperationsComeInDateOrderWithTheirOperationLetter)
{
    auto query = ErpLibrary::searchQuery(3, 1, "");
    const ErpLibrary::Reply reply = m_erp.search(query);
    ASSERT_EQ(reply.code, 103);
    EXPECT_EQ(texts(reply, "CodigoPublicacion"), (Texts{"10", "11"}));
    EXPECT_EQ(texts(reply, "Estado"), (Texts{"A", "I"}));
    EXPECT_EQ(texts(reply, "FechaPublicacion"),
              (Texts{"2026-02-02 08:05:09", "2026-02-03 11:00:00"}));

    query = ErpLibrary::searchQuery(3, 1, "");
    query.ministoreId = "MT-200";
    EXPECT_EQ(texts(m_erp.search(query), "CodigoPublicacion"), (Texts{"11"}));
}

TEST_F(ErpSellerListsTest, anAssociationsDetailJoinsTheErpProductWithTheStoredAttributes)
{
    const ErpLibrary::Reply reply = m_erp.definition(1, "1");
    ASSERT_EQ(reply.code, 0);
    const pugi::xml_node detail = reply.document.child("ObtenerDefinicionProducto");
    EXPECT_STREQ(detail.child("CodigoDovel").text().get(), "A-0001");
    EXPECT_STREQ(detail.child("Precio1").text().get(), "10.00");
    EXPECT_STREQ(detail.child("CodigoAsociacion").text().get(), "1");
    EXPECT_STREQ(detail.child("CodigoZorvanta").text().get(), "ZP-00001");
    EXPECT_STREQ(detail.child("FechaAsociacion").text().get(), "2026-01-10 09:00:00");
    EXPECT_STREQ(detail.select_node("AtributosCaracteristicos/VariantProperties/Field[@fieldID='Color']")
                     .node().text().get(),
                 "Rojo");
    EXPECT_FALSE(detail.child("AtributosNoCaracteristicos"));
    EXPECT_EQ(m_erp.definition(1, "99").code, 6003);
}

TEST_F(ErpSellerListsTest, aPublicationsDetailBelongsToItsMinistore)
{
    const ErpLibrary::Reply reply = m_erp.definition(2, "10", "MT-100");
    ASSERT_EQ(reply.code, 0);
    const pugi::xml_node detail = reply.document.child("ObtenerDefinicionProducto");
    EXPECT_STREQ(detail.child("CodigoPublicacion").text().get(), "10");
    EXPECT_STREQ(detail.child("FechaPublicacion").text().get(), "2026-02-01 10:00:00");
    EXPECT_STREQ(detail.child("FechaAsociacion").text().get(), "2026-01-10 09:00:00");
    EXPECT_STREQ(detail.select_node("AtributosNoCaracteristicos/Properties/Field").node()
                     .attribute("fieldID").value(),
                 "Cy_List_Price");
    EXPECT_TRUE(detail.child("AtributosCaracteristicos"));
    EXPECT_EQ(m_erp.definition(2, "10", "MT-200").code, 6003);
}

TEST_F(ErpSellerListsTest, aPendingOperationIsFoundByPublicationAndDate)
{
    struct Row
    {
        const char *what;
        const char *key;
        int code;
    };
    for (const Row &row : {Row{"the date as the program writes it", "10|2026-02-02 08:05:09", 0},
                           Row{"the date without padding", "10|2026-2-2 8:5:9", 0},
                           Row{"another date", "10|2026-02-02 08:05:10", 6003},
                           Row{"no date at all", "10", 6003},
                           Row{"not a number", "abc|2026-02-02 08:05:09", 6003}}) {
        EXPECT_EQ(m_erp.definition(3, row.key, "MT-100").code, row.code) << row.what;
    }
    const ErpLibrary::Reply reply = m_erp.definition(3, "10|2026-02-02 08:05:09", "MT-100");
    const pugi::xml_node detail = reply.document.child("ObtenerDefinicionProducto");
    EXPECT_STREQ(detail.child("Estado").text().get(), "A");
    EXPECT_STREQ(detail.child("NumeroError").text().get(), "-20");
    EXPECT_STREQ(detail.child("MensajeError").text().get(), "Precio fuera de rango");

    const ErpLibrary::Reply fresh = m_erp.definition(3, "11|2026-02-03 11:00:00", "MT-200");
    ASSERT_EQ(fresh.code, 0);
    EXPECT_STREQ(fresh.document.select_node("//NumeroError").node().text().get(), "0")
        << "an operation that never failed has error 0";
}

TEST(ErpSellerDatabaseTest, withoutTheSellersDatabaseTheListsAreEmptyAndDetailsFail)
{
    ErpSandbox sandbox;
    sandbox.writeData("<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(2, "A-") +
                      "</Categoria>");
    ErpLibrary erp;
    for (int type : {1, 2, 3}) {
        auto search = ErpLibrary::searchQuery(type, 1, "");
        EXPECT_EQ(erp.search(search).code, 8002) << type;
        auto category = ErpLibrary::categoryQuery(type, "C-A");
        EXPECT_EQ(erp.categoryContents(category).code, 6007) << type;
        EXPECT_EQ(erp.definition(type, "1").code, 9002) << type;
    }
    auto all = ErpLibrary::categoryQuery(0, "C-A");
    EXPECT_EQ(erp.categoryContents(all).code, 0) << "the ERP's own products need no database";
}
