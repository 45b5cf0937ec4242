#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <cstdlib>
#include <gtest/gtest.h>

using Texts = std::vector<std::string>;

TEST(ErpClientTest, theDemoSellerIsTheClientTheBackOfficeKnows)
{
    unsetenv("ASISTENTE_ERP_SIM_DATA");
    ErpLibrary erp;
    std::int32_t number = 0;
    ErpLibrary::Buffer license, key2, id, server, database, user, password;
    ASSERT_EQ(erp.clientIdentity(number, license, key2, id), 0);
    EXPECT_EQ(number, 4711);
    EXPECT_EQ((Texts{license.text(), key2.text(), id.text()}),
              (Texts{"NUB-LIC-2026-0042", "QK-7F3A9C", "V1042"}));
    ASSERT_EQ(erp.databaseCoordinates(server, database, user, password), 0);
    EXPECT_EQ((Texts{server.text(), database.text(), user.text(), password.text()}),
              (Texts{"localhost", "AsistenteDemo", "vendedor", "demo"}));
}

TEST(ErpClientTest, theDemoCatalogueHasHundredsOfPricedAndTaxedProductsInADeepTree)
{
    unsetenv("ASISTENTE_ERP_SIM_DATA");
    ErpLibrary erp;
    auto everything = ErpLibrary::searchQuery(0, 1, "");
    everything.querySize = 1000;
    const ErpLibrary::Reply all = erp.search(everything);
    EXPECT_EQ(all.code, 103);
    EXPECT_GE(all.count, 300);

    const ErpLibrary::Reply drill = erp.definition(0, "ERP-0001");
    EXPECT_EQ(drill.texts("/*/Descripcion"), Texts{"Taladro percutor Fortex 500 W"});
    EXPECT_EQ(drill.texts("/*/Precio1 | /*/Precio2 | /*/Precio3"),
              (Texts{"89.90", "80.91", "71.92"}));
    EXPECT_EQ(drill.texts("//Impuesto/@CodigoImpuesto"), (Texts{"IVA", "ECO"}));

    // Three levels below the root: Ferretería, Herramientas eléctricas, Taladros.
    auto drills = ErpLibrary::categoryQuery(0, "DC-010101");
    EXPECT_EQ(erp.categoryContents(drills).texts("//CategoriaActual/@nombre"),
              Texts{"Taladros y atornilladores"});
    EXPECT_EQ(erp.taxes().texts("//TipoImpuesto | //TipoMonto"),
              (Texts{"G", "0", "L", "0", "L", "1"}));
}

TEST(ErpDepositTest, eachDepositNamesTheMinistoreLinkedToItOnceTheSellersTableHasTheLink)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    ErpLibrary erp;
    const ErpLibrary::Reply before = erp.virtualDeposits();
    ASSERT_EQ(before.code, 0);
    EXPECT_EQ(before.count, 4);
    EXPECT_TRUE(before.texts("//Minitienda").empty()) << "no database file, no link";

    sandbox.createSellerTables();
    sandbox.execute("INSERT INTO WITIENDAS VALUES ('MT-200', 'Tienda Caracas', 'DV-02');"
                    "INSERT INTO WITIENDAS VALUES ('MT-300', 'Tienda de ofertas', 'DV-03');");
    const ErpLibrary::Reply after = erp.virtualDeposits();
    ASSERT_EQ(after.code, 0);
    EXPECT_TRUE(after.guardIntact);
    // The reader turns every child of the document element into a deposit.
    EXPECT_EQ(after.document.select_nodes("/*/node()").size(), 4u);
    EXPECT_EQ(after.texts("/*/*/@Codigo"), (Texts{"DV-01", "DV-02", "DV-03", "DV-04"}));
    EXPECT_EQ(after.texts("/*/DepositoVirtual[Minitienda]/@Codigo"), (Texts{"DV-02", "DV-03"}));
    EXPECT_EQ(after.texts("//Minitienda"), (Texts{"MT-200", "MT-300"}));
    EXPECT_EQ(after.texts("//DepositoVirtual[not(DireccionFisica)]/Descripcion"),
              Texts{"Devoluciones"});
}

TEST(ErpDepositTest, aDatabaseWithoutTheLinkTableFailsTheListWithADatabaseCode)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    sandbox.execute("CREATE TABLE Otra (x TEXT);");
    const ErpLibrary::Reply reply = ErpLibrary().virtualDeposits();
    EXPECT_EQ(reply.code, 9003);
    EXPECT_EQ(reply.text, "");
}
