// The catalogue against the sandbox a seller runs: feria-sim, the real ERP and back-office
// libraries, the demo data and an ERP data set of the test's own.

#include "CatalogueTest.h"
#include "ErpSandbox.h"
#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"
#include "gateways/CommerceServer.h"
#include "stores/Seller.h"
#include "stores/SellerTax.h"

#include <fstream>
#include <httplib.h>

namespace {

// An ERP category says it is done as text, a search as -1, a marketplace category as true.
template <class Source> bool ended(Source &source)
{
    if constexpr (std::is_same_v<Source, DovelCategory>)
        return source.allRead() == "True";
    else
        return source.allRead() != 0;
}

/// Reads every page from the first, as a page does; gives their sizes.
template <class Source> std::vector<int> everyPage(Source &source)
{
    std::vector<int> sizes;
    for (source.StartQuery(); sizes.size() < 100; source.GetMore()) {
        sizes.push_back(source.products()->count());
        if (ended(source))
            break;
    }
    return sizes;
}

class CatalogueSandboxTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        std::ifstream(FERIA_URL_FILE) >> m_url;
        setenv("ASISTENTE_MARKETPLACE_URL", m_url.c_str(), 1);
        setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
        gSeller.reset();
        ASSERT_TRUE(CommerceServerInit()) << "feria-sim at '" << m_url << "'";
    }
    void TearDown() override
    {
        gSeller->closeSession();
        gSeller.reset();
        gStoreClient.reset();
        gCatalogOperationsClient.reset();
        gCatalogInfoClient.reset();
        CatalogueTest::TearDown();
    }
    /// What feria-sim holds and received, as it tells its tests.
    std::string marketplaceState() const
    {
        const auto reply = httplib::Client(m_url).Get("/sim/state");
        return reply ? reply->body : std::string();
    }

private:
    std::string m_url;
};

} // namespace

TEST_F(CatalogueSandboxTest, theErpIsWalkedAndSearchedInPagesOfFifty)
{
    ErpSandbox sandbox;
    sandbox.writeData(
        "<Categoria id='C-BIG' nombre='Grande'><Categoria id='C-SUB' nombre='Sub'/>" +
        ErpSandbox::products(120) + "</Categoria><Categoria id='C-K' nombre='K'>" +
        ErpSandbox::products(3, "K-", "Cafetera") + "</Categoria>");
    DovelCategory big;
    big.setId("C-BIG");
    EXPECT_EQ(everyPage(big), (std::vector<int>{50, 50, 20, 0})) << "the last one ends on 6007";
    EXPECT_EQ(idsOf(big.children()), Texts{"C-SUB"});

    const std::tuple<const char *, bool, std::vector<int>> searches[] = {
        {"Artículo", true, {50, 50, 20}},  // ending on 102
        {"Artículo", false, {50, 50, 20}}, // backwards, ending on 101
        {"Cafetera", true, {3}},           // 103
        {"Tostadora", true, {0}},          // 8002
    };
    for (const auto &[text, forward, pages] : searches) {
        SCOPED_TRACE(text);
        const auto browser = sellerBrowser();
        browser->setQueryType(2);
        browser->setSearchString(text);
        browser->setForward(forward);
        EXPECT_EQ(everyPage(*browser), pages);
    }

    const auto browser = sellerBrowser();
    browser->setSearchString("K-0002");
    browser->StartQuery();
    const auto coffee = browser->products()->item(1)->sellerProduct();
    EXPECT_EQ(coffee->price1(), "10.00");
    EXPECT_EQ(coffee->price3(), "8.00");
    EXPECT_EQ(coffee->taxes()->item(1)->id(), "IVA");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(CatalogueSandboxTest, aHundredShirtsComeInThreePagesEachWithItsGroups)
{
    auto shirts = ZorvantaService().RootCategory();
    shirts->setId("ZC-310");
    EXPECT_EQ(everyPage(*shirts), (std::vector<int>{50, 50, 0}));
    shirts->StartQuery();
    const auto shirt = shirts->products()->item(1);
    EXPECT_EQ(idsOf(shirt->variantProperties()), (Texts{"Color", "Talla"}));
    EXPECT_EQ(idsOf(shirt->CharacteristicProperties()),
              (Texts{"Name", "Description", "Marca", "Material", "Imagen"}));
    EXPECT_FALSE(shirt->properties()->contains("ERPID"));
    EXPECT_TRUE(shirt->NonCharacteristicProperties()->contains("Group5Quantity"));
    EXPECT_TRUE(shirts->productDefinitions()->item(1)->properties()->contains("ERPID"));
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(CatalogueSandboxTest, theMarketplaceRecordsTheSellersRequests)
{
    const auto sports = ZorvantaService().RootCategory();
    sports->setId("ZC-400");
    ASSERT_NE(sports->RequestNewSubcategory("Escalada en roca"), nullptr);
    std::string request = "<RequestNewProduct><Product Definition='pdEquipoDeportivo'><Field "
                          "fieldID='Name'><![CDATA[Cuerda dinámica]]></Field></Product>"
                          "</RequestNewProduct>";
    sports->RequestNewProduct(request);
    EXPECT_EQ(ui->boxTexts(), Texts{"Solicitud enviada exitosamente"});
    const std::string state = marketplaceState();
    EXPECT_NE(state.find("Escalada en roca"), std::string::npos) << state;
    EXPECT_NE(state.find("Cuerda dinámica"), std::string::npos) << state;
}
