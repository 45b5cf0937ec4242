#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

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
        const std::string none = "'<Properties/><VariantProperties/>'";
        const std::string color = "'<Properties/><VariantProperties><Field fieldID=\"Color\">"
                                  "<![CDATA[Rojo]]></Field></VariantProperties>'";
        const std::string price = "'<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[10.50]]>"
                                  "</Field></Properties><VariantProperties/>'";
        m_sandbox.execute(
            "INSERT INTO WIPRODASOC VALUES (1, 'A-0001', 'ZP-00001', " + color +
            ", '2026-01-10 09:00:00'), (2, 'A-0002', 'ZP-00002', " + none +
            ", '2026-01-11 09:30:00'), (3, 'B-0001', 'ZP-00003', " + none +
            ", '2026-01-12 10:00:00'), (4, 'X-GONE', 'ZP-00004', '', '2026-01-12 10:00:00');"
            "INSERT INTO WIPRODPUBL VALUES (10, 1, 'MT-100', 'K', " +
            price +
            ", '2026-02-01 10:00:00'), (11, 2, 'MT-200', 'L', '', '2026-02-03 11:00:00');"
            "INSERT INTO WIPRODPEND VALUES "
            "(11, 2, 'MT-200', 'I', '', '2026-02-03 11:00:00', 0, NULL, NULL), "
            "(10, 1, 'MT-100', 'A', " +
            price + ", '2026-02-02 08:05:09', 2, 'Precio fuera de rango', -20);");
    }

    ErpLibrary::Reply search(int type, const std::string &ministore = "")
    {
        auto query = ErpLibrary::searchQuery(type, 1, "");
        query.ministoreId = ministore;
        return m_erp.search(query);
    }

    ErpSandbox m_sandbox;
    ErpLibrary m_erp;
};

} // namespace

TEST_F(ErpSellerListsTest, associatedProductsAreListedWithTheirMarketplaceProductInAnyStore)
{
    const ErpLibrary::Reply reply = search(1, "MT-300");
    EXPECT_EQ(reply.code, 103);
    EXPECT_EQ(reply.productIds(), (Texts{"A-0001", "A-0002", "B-0001"}))
        << "an association whose ERP product is gone is not listed";
    EXPECT_EQ(reply.texts("//CodigoAsociacion"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(reply.texts("//CodigoZorvanta"), (Texts{"ZP-00001", "ZP-00002", "ZP-00003"}));
    EXPECT_TRUE(reply.texts("//CodigoPublicacion").empty());

    auto category = ErpLibrary::categoryQuery(1, "C-B");
    EXPECT_EQ(m_erp.categoryContents(category).texts("//CodigoAsociacion"), Texts{"3"});
    EXPECT_EQ(m_erp.categoryContents(category).code, 6007);
}

TEST_F(ErpSellerListsTest, aListLineNeverCarriesTheAttributes)
{
    // The program looks for these elements anywhere in a document to tell a detail from a list.
    for (int type : {1, 2, 3}) {
        EXPECT_TRUE(search(type)
                        .texts("//AtributosCaracteristicos | //AtributosNoCaracteristicos"
                               " | //ObtenerDefinicionProducto")
                        .empty())
            << type;
    }
}

TEST_F(ErpSellerListsTest, publishedProductsAreNarrowedToTheChosenMinistore)
{
    struct Row
    {
        const char *what;
        const char *ministore;
        Texts publications;
    };
    for (const Row &row :
         {Row{"store MT-100", "MT-100", {"10"}},
          Row{"a store id as the server compares it", "mt-100 ", {"10"}},
          Row{"no store given", "", {"10", "11"}}, Row{"a store with nothing", "MT-300", {}}}) {
        EXPECT_EQ(search(2, row.ministore).texts("//CodigoPublicacion"), row.publications)
            << row.what;
    }
    EXPECT_EQ(search(2, "MT-100").texts("//Producto/*"),
              (Texts{"A-0001", "Artículo 1", "R1", "1", "10", "ZP-00001", "MT-100", "K",
                     "2026-02-01 10:00:00"}));
}

TEST_F(ErpSellerListsTest, pendingOperationsComeInDateOrderWithTheirOperationLetter)
{
    const ErpLibrary::Reply reply = search(3);
    EXPECT_EQ(reply.code, 103);
    EXPECT_EQ(reply.texts("//CodigoPublicacion | //Estado"), (Texts{"10", "A", "11", "I"}));
    EXPECT_EQ(reply.texts("//FechaPublicacion"),
              (Texts{"2026-02-02 08:05:09", "2026-02-03 11:00:00"}));
    EXPECT_EQ(search(3, "MT-200").texts("//CodigoPublicacion"), Texts{"11"});
}

TEST_F(ErpSellerListsTest, anAssociationsDetailJoinsTheErpProductWithTheStoredAttributes)
{
    const ErpLibrary::Reply reply = m_erp.definition(1, "1");
    ASSERT_EQ(reply.code, 0);
    EXPECT_EQ(reply.texts("/ObtenerDefinicionProducto/*[not(self::Impuestos)]"),
              (Texts{"A-0001", "Artículo 1", "R1", "10.00", "9.00", "8.00", "1", "ZP-00001",
                     "2026-01-10 09:00:00", ""}));
    EXPECT_EQ(reply.texts("/*/AtributosCaracteristicos/VariantProperties/Field[@fieldID='Color']"),
              Texts{"Rojo"});
    EXPECT_EQ(m_erp.definition(1, "99").code, 6003);
}

TEST_F(ErpSellerListsTest, aPublicationsDetailBelongsToItsMinistore)
{
    const ErpLibrary::Reply reply = m_erp.definition(2, "10", "MT-100");
    ASSERT_EQ(reply.code, 0);
    EXPECT_EQ(reply.texts("/*/CodigoPublicacion | /*/FechaPublicacion | /*/FechaAsociacion"),
              (Texts{"10", "2026-02-01 10:00:00", "2026-01-10 09:00:00"}));
    EXPECT_EQ(reply.texts("/*/AtributosNoCaracteristicos/Properties/Field/@fieldID"),
              Texts{"Cy_List_Price"});
    EXPECT_EQ(reply.texts("/*/AtributosCaracteristicos//Field"), Texts{"Rojo"});
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
    for (const Row &row :
         {Row{"the date as the program writes it", "10|2026-02-02 08:05:09", 0},
          Row{"the date without padding", "10|2026-2-2 8:5:9", 0},
          Row{"another date", "10|2026-02-02 08:05:10", 6003}, Row{"no date at all", "10", 6003},
          Row{"not a number", "abc|2026-02-02 08:05:09", 6003}}) {
        EXPECT_EQ(m_erp.definition(3, row.key, "MT-100").code, row.code) << row.what;
    }
    EXPECT_EQ(m_erp.definition(3, "10|2026-02-02 08:05:09", "MT-100")
                  .texts("/*/Estado | /*/NumeroError | /*/MensajeError"),
              (Texts{"A", "-20", "Precio fuera de rango"}));
    EXPECT_EQ(m_erp.definition(3, "11|2026-02-03 11:00:00").texts("/*/NumeroError"), Texts{"0"})
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
