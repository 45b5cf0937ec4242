#include "Erp.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>
#include <tuple>

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

    static Erp::Reply search(int type, const std::string &ministore = "")
    {
        auto query = Erp::searchQuery(type, 1, "");
        query.ministoreId = ministore;
        return Erp::page(query);
    }

    ErpSandbox m_sandbox;
};

} // namespace

TEST_F(ErpSellerListsTest, eachListGivesItsLinesAndNeverTheirAttributes)
{
    const char *associations = "//CodigoAsociacion";
    const char *publications = "//CodigoPublicacion";
    const std::tuple<const char *, int, const char *, const char *, Texts> lists[] = {
        {"associations, in any store, without the one whose product is gone",
         1,
         "MT-300",
         associations,
         {"1", "2", "3"}},
        {"publications of one store", 2, "MT-100", publications, {"10"}},
        {"a store id as the server compares it", 2, "mt-100 ", publications, {"10"}},
        {"publications of every store", 2, "", publications, {"10", "11"}},
        {"a store with nothing published", 2, "MT-300", publications, {}},
        {"pending operations in date order, with their operation letter",
         3,
         "",
         "//CodigoPublicacion | //Estado",
         {"10", "A", "11", "I"}},
        {"pending operations of one store", 3, "MT-200", publications, {"11"}},
    };
    for (const auto &[what, type, ministore, xpath, found] : lists) {
        const Erp::Reply reply = search(type, ministore);
        EXPECT_EQ(reply.texts(xpath), found) << what;
        EXPECT_EQ(reply.code, found.empty() ? 8002 : 103) << what;
        // The program looks for these anywhere in a document to tell a detail from a list.
        EXPECT_TRUE(reply
                        .texts("//AtributosCaracteristicos | //AtributosNoCaracteristicos"
                               " | //ObtenerDefinicionProducto")
                        .empty())
            << what;
    }
    auto category = Erp::categoryQuery(1, "C-B");
    EXPECT_EQ(Erp::page(category).texts(associations), Texts{"3"});
    EXPECT_EQ(Erp::page(category).code, 6007);
}

TEST_F(ErpSellerListsTest, aDetailIsFoundByItsKeyInItsMinistore)
{
    const std::tuple<const char *, int, const char *, const char *, int> details[] = {
        {"an association", 1, "1", "", 0},
        {"an association that does not exist", 1, "99", "", 6003},
        {"a publication in its store", 2, "10", "MT-100", 0},
        {"a publication in another store", 2, "10", "MT-200", 6003},
        {"a pending operation by publication and date", 3, "10|2026-02-02 08:05:09", "MT-100", 0},
        {"the date without padding", 3, "10|2026-2-2 8:5:9", "MT-100", 0},
        {"another date", 3, "10|2026-02-02 08:05:10", "MT-100", 6003},
        {"no date at all", 3, "10", "MT-100", 6003},
        {"a publication that is no number", 3, "abc|2026-02-02 08:05:09", "MT-100", 6003},
    };
    for (const auto &[what, type, key, ministore, code] : details) {
        EXPECT_EQ(Erp::definition(type, key, ministore).code, code) << what;
    }
    // The ERP's product joined with what the seller's tables keep.
    const Erp::Reply association = Erp::definition(1, "1");
    EXPECT_EQ(association.texts("/ObtenerDefinicionProducto/*[not(self::Impuestos)]"),
              (Texts{"A-0001", "Artículo 1", "R1", "10.00", "9.00", "8.00", "1", "ZP-00001",
                     "2026-01-10 09:00:00", ""}));
    EXPECT_EQ(association.texts("//AtributosCaracteristicos//Field[@fieldID='Color']"),
              Texts{"Rojo"});
    const Erp::Reply publication = Erp::definition(2, "10", "MT-100");
    EXPECT_EQ(publication.texts("/*/CodigoPublicacion | /*/FechaPublicacion"),
              (Texts{"10", "2026-02-01 10:00:00"}));
    EXPECT_EQ(publication.texts("//AtributosNoCaracteristicos/Properties/Field/@fieldID"),
              Texts{"Cy_List_Price"});
    EXPECT_EQ(Erp::definition(3, "10|2026-02-02 08:05:09", "MT-100")
                  .texts("/*/Estado | /*/NumeroError | /*/MensajeError"),
              (Texts{"A", "-20", "Precio fuera de rango"}));
    EXPECT_EQ(Erp::definition(3, "11|2026-02-03 11:00:00").texts("/*/NumeroError"), Texts{"0"})
        << "an operation that never failed has error 0";
}

TEST(ErpSellerDatabaseTest, withoutTheSellersDatabaseTheListsAreEmptyAndDetailsFail)
{
    ErpSandbox sandbox;
    sandbox.writeData("<Categoria id='C-A' nombre='A'>" + ErpSandbox::products(2, "A-") +
                      "</Categoria>");
    for (int type : {1, 2, 3}) {
        auto search = Erp::searchQuery(type, 1, "");
        EXPECT_EQ(Erp::page(search).code, 8002) << type;
        auto category = Erp::categoryQuery(type, "C-A");
        EXPECT_EQ(Erp::page(category).code, 6007) << type;
        EXPECT_EQ(Erp::definition(type, "1").code, 9002) << type;
    }

    sandbox.execute("CREATE TABLE Otra (x TEXT);");
    const Erp::Reply deposits = Erp::virtualDeposits();
    EXPECT_EQ(deposits.code, 9003) << "a database without the links table";
    EXPECT_EQ(deposits.text, "");
}
