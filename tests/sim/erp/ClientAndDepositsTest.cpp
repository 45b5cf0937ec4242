#include "ErpLibrary.h"
#include "ErpSandbox.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>

namespace {

std::map<std::string, std::string> linkedStores(const ErpLibrary::Reply &reply)
{
    std::map<std::string, std::string> links;
    for (const pugi::xml_node deposit : reply.document.document_element().children()) {
        links[deposit.attribute("Codigo").value()] = deposit.child("Minitienda").text().get();
    }
    return links;
}

} // namespace

TEST(ErpClientTest, theDemoSellerIsTheClientTheBackOfficeKnows)
{
    unsetenv("ASISTENTE_ERP_SIM_DATA");
    ErpLibrary erp;
    std::int32_t number = 0;
    ErpLibrary::Buffer license(256), key2(256), id(256);
    ASSERT_EQ(erp.clientIdentity(number, license, key2, id), 0);
    EXPECT_EQ(number, 4711);
    EXPECT_EQ(license.text(), "NUB-LIC-2026-0042");
    EXPECT_EQ(key2.text(), "QK-7F3A9C");
    EXPECT_EQ(id.text(), "V1042");

    ErpLibrary::Buffer server(256), database(256), user(256), password(256);
    ASSERT_EQ(erp.databaseCoordinates(server, database, user, password), 0);
    EXPECT_EQ(server.text(), "localhost");
    EXPECT_EQ(database.text(), "AsistenteDemo");
    EXPECT_EQ(user.text(), "vendedor");
    EXPECT_EQ(password.text(), "demo");
}

TEST(ErpClientTest, theDemoCatalogueHasHundredsOfPricedAndTaxedProductsInADeepTree)
{
    unsetenv("ASISTENTE_ERP_SIM_DATA");
    ErpLibrary erp;
    auto everything = ErpLibrary::searchQuery(0, 1, "");
    everything.querySize = 1000;
    const ErpLibrary::Reply all = erp.search(everything);
    ASSERT_EQ(all.code, 103);
    EXPECT_GE(all.count, 300);

    const ErpLibrary::Reply drill = erp.definition(0, "ERP-0001");
    ASSERT_EQ(drill.code, 0);
    const pugi::xml_node detail = drill.document.child("ObtenerDefinicionProducto");
    EXPECT_STREQ(detail.child("Descripcion").text().get(), "Taladro percutor Fortex 500 W");
    for (const char *price : {"Precio1", "Precio2", "Precio3"}) {
        EXPECT_GT(detail.child(price).text().as_double(), 0.0) << price;
    }
    EXPECT_GT(detail.child("Precio1").text().as_double(), detail.child("Precio3").text().as_double());
    EXPECT_EQ(drill.document.select_nodes("//Impuesto").size(), 2u);

    // Three levels below the root: Ferretería, Herramientas eléctricas, Taladros.
    auto drills = ErpLibrary::categoryQuery(0, "DC-010101");
    const ErpLibrary::Reply leaf = erp.categoryContents(drills);
    EXPECT_EQ(leaf.code, 0);
    EXPECT_STREQ(leaf.document.select_node("//CategoriaActual").node().attribute("nombre").value(),
                 "Taladros y atornilladores");

    const ErpLibrary::Reply taxes = erp.taxes();
    ASSERT_EQ(taxes.code, 0);
    std::set<std::string> kinds;
    for (const pugi::xpath_node tax : taxes.document.select_nodes("//Impuesto")) {
        kinds.insert(std::string(tax.node().child("TipoImpuesto").text().get()) + "/" +
                     tax.node().child("TipoMonto").text().get());
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"G/0", "L/0", "L/1"}));
}

TEST(ErpDepositTest, eachDepositNamesTheMinistoreLinkedToItInTheSellersTable)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    sandbox.createSellerTables();
    sandbox.execute("INSERT INTO WITIENDAS VALUES ('MT-200', 'Tienda Caracas', 'DV-02');"
                    "INSERT INTO WITIENDAS VALUES ('MT-300', 'Tienda de ofertas', 'DV-03');");
    ErpLibrary erp;
    ErpLibrary::Buffer position(1000);
    const ErpLibrary::Reply reply = erp.virtualDeposits(position);
    ASSERT_EQ(reply.code, 0);
    ASSERT_TRUE(reply.parsed) << reply.text;
    EXPECT_EQ(reply.count, 4);
    EXPECT_EQ(linkedStores(reply), (std::map<std::string, std::string>{
                                       {"DV-01", ""}, {"DV-02", "MT-200"},
                                       {"DV-03", "MT-300"}, {"DV-04", ""}}));
}

TEST(ErpDepositTest, theDepositListHoldsOnlyDepositElementsAndOmitsAMissingAddress)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    ErpLibrary erp;
    ErpLibrary::Buffer position(1000);
    const ErpLibrary::Reply reply = erp.virtualDeposits(position);
    ASSERT_EQ(reply.code, 0);
    // The reader turns every child of the document element into a deposit.
    for (const pugi::xml_node child : reply.document.document_element().children()) {
        EXPECT_STREQ(child.name(), "DepositoVirtual");
        EXPECT_FALSE(child.child("Descripcion").text().empty());
    }
    const pugi::xml_node returns =
        reply.document.select_node("//DepositoVirtual[@Codigo='DV-04']").node();
    EXPECT_FALSE(returns.child("DireccionFisica"));
    EXPECT_STREQ(returns.child("Descripcion").text().get(), "Devoluciones");
}

TEST(ErpDepositTest, withoutTheSellersDatabaseNoDepositIsLinked)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    ErpLibrary erp;
    ErpLibrary::Buffer position(1000);
    const ErpLibrary::Reply reply = erp.virtualDeposits(position);
    ASSERT_EQ(reply.code, 0);
    EXPECT_EQ(reply.count, 4);
    EXPECT_TRUE(reply.document.select_nodes("//Minitienda").empty());
}

TEST(ErpDepositTest, aDatabaseWithoutTheLinkTableFailsTheListWithADatabaseCode)
{
    ErpSandbox sandbox;
    sandbox.writeData("");
    sandbox.execute("CREATE TABLE Otra (x TEXT);");
    ErpLibrary erp;
    ErpLibrary::Buffer position(1000);
    const ErpLibrary::Reply reply = erp.virtualDeposits(position);
    EXPECT_EQ(reply.code, 9003);
    EXPECT_EQ(reply.text, "");
}
