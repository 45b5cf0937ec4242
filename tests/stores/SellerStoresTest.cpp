#include "StoresTest.h"
#include "stores/ZorvantaMinistore.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

using SellerStoresTest = StoresTest;

std::vector<std::string> idsOf(const std::shared_ptr<Ministores> &ministores)
{
    std::vector<std::string> ids;
    for (const auto &ministore : *ministores)
        ids.push_back(ministore->id() + ":" + ministore->status());
    return ids;
}

} // namespace

TEST_F(SellerStoresTest, theTwoRepliesAreJoinedOnceAndASecondReadMakesNoCall)
{
    answerDemoStores();
    const auto ministores = gSeller->ministores();
    EXPECT_EQ(idsOf(ministores), (std::vector<std::string>{"100:A", "200:I"}));
    EXPECT_EQ(gSeller->ministores(), ministores);
    EXPECT_EQ(store.calls(), 1);
    ASSERT_EQ(backOffice->calls.size(), 1u);
    EXPECT_EQ(backOffice->calls[0].request,
              "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>"
              "NUB-LIC-2026-0042</ProductLicense></GetStoreInfo>");
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
    EXPECT_EQ(idsOf(gSeller->ministores()), std::vector<std::string>{"100:A"});
}
