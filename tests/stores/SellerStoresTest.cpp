#include "StoresTest.h"

#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class SellerStoresTest : public StoresTest
{
protected:
    std::vector<std::string> ids(const std::shared_ptr<Ministores> &ministores)
    {
        std::vector<std::string> found;
        for (const auto &ministore : *ministores)
            found.push_back(ministore->id() + ":" + ministore->name() + ":" + ministore->status());
        return found;
    }
};

const char *const kDeposits =
    "<ListarDepositosVirtuales>"
    "<DepositoVirtual Codigo='DV-01'><Descripcion>Depósito central</Descripcion>"
    "<DireccionFisica>Zona Industrial Norte</DireccionFisica><Minitienda>200</Minitienda>"
    "</DepositoVirtual>"
    "<DepositoVirtual Codigo='DV-04'><Descripcion>Bodega de devoluciones</Descripcion>"
    "</DepositoVirtual></ListarDepositosVirtuales>";

} // namespace

TEST_F(SellerStoresTest, theStoresOfTheServiceAreCompletedByTheBackOffice)
{
    answerDemoStores();
    const auto ministores = gSeller->ministores();
    ASSERT_TRUE(ministores);
    EXPECT_THAT(ids(ministores), ElementsAre("100:Andina Hogar y Cocina:A", "200:Andina Deportes:I"));
    EXPECT_EQ(store.lastSellerId(), "V1042");
    ASSERT_EQ(backOffice->calls.size(), 1u);
    EXPECT_EQ(backOffice->calls[0].operationId, 13);
    EXPECT_EQ(backOffice->calls[0].request, "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>"
                                            "NUB-LIC-2026-0042</ProductLicense></GetStoreInfo>");
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(SellerStoresTest, aSecondReadMakesNoCall)
{
    answerDemoStores();
    const auto first = gSeller->ministores();
    EXPECT_EQ(gSeller->ministores(), first);
    EXPECT_EQ(store.calls(), 1);
    EXPECT_EQ(backOffice->calls.size(), 1u);
}

TEST_F(SellerStoresTest, noStoresGiveAnEmptyListThatIsReadAgainNextTime)
{
    answerStores("", "");
    const auto ministores = gSeller->ministores();
    ASSERT_TRUE(ministores);
    EXPECT_TRUE(ministores->empty());
    answerStores("", "");
    gSeller->ministores();
    EXPECT_EQ(store.calls(), 2);
}

TEST_F(SellerStoresTest, aStoreOnlyTheBackOfficeKnowsIsIgnored)
{
    answerStores(storeNode("100", "Andina"), backOfficeNode("100", "A") + backOfficeNode("7", "A"));
    EXPECT_THAT(ids(gSeller->ministores()), ElementsAre("100:Andina:A"));
}

TEST_F(SellerStoresTest, aStoreTheBackOfficeDoesNotKnowIsFatalAndKeepsTheStoresBeforeIt)
{
    answerStores(storeNode("100", "Andina") + storeNode("5", "Cinco"), backOfficeNode("100", "A"));
    EXPECT_EQ(gSeller->ministores(), nullptr);
    EXPECT_THAT(logLines().at(0),
                HasSubstr("Error: -11002 (Seller:Get ministores): No se encontró en el XML "
                          "retornado por EjecutarOperacion.QDX_Obtener_Informacion_Minitiendas la "
                          "información de la tienda 5: <GetStoreInfo>"));
    EXPECT_FALSE(gAppRunning);
    EXPECT_THAT(ids(gSeller->ministores()), ElementsAre("100:Andina:A"));
}

TEST_F(SellerStoresTest, anErrorOfTheServiceNamesItsNumberInTheSource)
{
    store.answer("<GetSellerInformation><RESULT><RETURNCODE>-8013</RETURNCODE><DESCRIPTION>"
                 "Vendedor inexistente</DESCRIPTION></RESULT></GetSellerInformation>");
    EXPECT_EQ(gSeller->ministores(), nullptr);
    EXPECT_THAT(logLines().at(0),
                HasSubstr("Error: -11003 (Seller:Get ministores CommerceServerStoreAPI."
                          "GetSellerInformation retornó con error: -8013): Vendedor inexistente"));
    EXPECT_TRUE(backOffice->calls.empty());
}

TEST_F(SellerStoresTest, depositsAreReadOnceWithTheirAddressAndTheirMinistore)
{
    answerDemoStores();
    erp->depositsReply = kDeposits;
    const auto deposits = gSeller->virtualDeposits();
    ASSERT_TRUE(deposits);
    ASSERT_EQ(deposits->count(), 2);
    const auto central = deposits->item("DV-01");
    EXPECT_EQ(central->Description(), "Depósito central");
    EXPECT_EQ(central->address(), "Zona Industrial Norte");
    EXPECT_EQ(central->ministore(), gSeller->ministores()->item("200"));
    EXPECT_EQ(deposits->item("DV-04")->address(), "");
    EXPECT_EQ(deposits->item("DV-04")->ministore(), nullptr);
    erp->depositsReply = "<ListarDepositosVirtuales/>";
    EXPECT_EQ(gSeller->virtualDeposits(), deposits);
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(SellerStoresTest, aDepositLinkedToAStoreTheMarketplaceDoesNotReportIsFatal)
{
    answerStores(storeNode("100", "Andina"), backOfficeNode("100", "A"));
    erp->depositsReply = kDeposits;
    gSeller->virtualDeposits();
    EXPECT_THAT(logLines().at(0),
                HasSubstr("Error: -11004 (VirtualDeposit:Let xml): La información de la minitienda "
                          "200 para el depósito virtual DV-01 no fue retornada en la llamada a "
                          "sorvek"));
    EXPECT_FALSE(gAppRunning);
}
