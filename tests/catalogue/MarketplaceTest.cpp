#include "MarketplaceTest.h"

#include "gateways/CommerceServer.h"
#include "stores/Seller.h"

#include <cstdlib>

void MarketplaceTest::SetUp()
{
    CatalogueTest::SetUp();
    setenv("ASISTENTE_MARKETPLACE_URL", marketplace.url().c_str(), 1);
    ASSERT_TRUE(CommerceServerInit());
    erp = std::make_shared<FakeErp>();
    backOffice = std::make_shared<FakeBackOffice>();
    setErpLibrary(erp);
    setBackOfficeLibrary(backOffice);
    gSeller.reset();
}

void MarketplaceTest::TearDown()
{
    gSeller.reset();
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
    gStoreClient.reset();
    gCatalogOperationsClient.reset();
    gCatalogInfoClient.reset();
    unsetenv("ASISTENTE_MARKETPLACE_URL");
    CatalogueTest::TearDown();
}

void MarketplaceTest::givenMinistores(const std::vector<std::string> &ids)
{
    std::string stores;
    std::string backOfficeStores;
    for (const std::string &id : ids) {
        stores += "<Store><StoreID>" + id + "</StoreID><Name>Tienda " + id +
                  "</Name><NumberOfProducts>0</NumberOfProducts></Store>";
        backOfficeStores += "<Store StoreID='" + id +
                            "'><MaxProducts>50</MaxProducts><ProductID>300</ProductID>"
                            "<Status>A</Status></Store>";
    }
    marketplace.queue(
        "GetSellerInformation",
        CannedMarketplace::reply("GetSellerInformation",
                                 "<SellerID>V1042</SellerID><Stores>" + stores + "</Stores>"));
    backOffice->queue(0, "<GetStoreInfo>" + backOfficeStores + "</GetStoreInfo>");
}

std::string
MarketplaceTest::categoryPage(const std::string &id,
                              const std::vector<std::pair<std::string, std::string>> &children,
                              int first, int last)
{
    std::string content = "<CurrentCategory name='Categoría " + id + "' id='" + id +
                          "'><Field fieldID='Description'>Descripción " + id +
                          "</Field></CurrentCategory><Categories>";
    for (const auto &[childId, description] : children)
        content += "<Category name='n" + childId + "' id='" + childId +
                   "'><Field fieldID='Description'>" + description + "</Field></Category>";
    content += "</Categories><Products>";
    for (int n = first; n <= last; ++n) {
        const std::string number = std::to_string(n);
        content += "<Product id='ZP-" + number + "'><Field fieldID='Name'>Producto " + number +
                   "</Field><Field fieldID='Description'>Descripción " + number +
                   "</Field></Product>";
    }
    return CannedMarketplace::reply("GetCategoryContent", content + "</Products>");
}

std::string MarketplaceTest::applicationErrorBox(int number)
{
    return "Error: " + std::to_string(number) +
           ": Error de la aplicación. Contacte al administrador del sistema";
}
