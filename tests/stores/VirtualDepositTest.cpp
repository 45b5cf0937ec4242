#include "stores/VirtualDeposit.h"

#include "StoresTest.h"
#include "stores/ZorvantaMinistore.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VirtualDepositTest : public StoresTest
{
protected:
    void SetUp() override
    {
        StoresTest::SetUp();
        // DV-01 free, DV-02 linked to store 200.
        answerStores(storeNode("100", "Andina Hogar y Cocina, Muebles y Decoración") +
                         storeNode("200", "Andina Deportes"),
                     backOfficeNode("100", "A") + backOfficeNode("200", "A"));
        erp->depositsReply = "<L><D Codigo='DV-01'><Descripcion>Central</Descripcion></D>"
                             "<D Codigo='DV-02'><Descripcion>Tienda</Descripcion>"
                             "<Minitienda>200</Minitienda></D></L>";
        database->execute(Sql("INSERT INTO WITIENDAS VALUES ('200', 'Andina Deportes', 'DV-02')"));
        free = gSeller->virtualDeposits()->item("DV-01");
        linked = gSeller->virtualDeposits()->item("DV-02");
        free->setMinistore(gSeller->ministores()->item("100"));
    }
    std::vector<std::string> links()
    {
        return database->rows(Sql("SELECT IdTienda, Descrip, IDDepoVDOVEL FROM WITIENDAS "
                                  "ORDER BY IdTienda"));
    }

    std::shared_ptr<VirtualDeposit> free;
    std::shared_ptr<VirtualDeposit> linked;
};

} // namespace

TEST_F(VirtualDepositTest, linkingStoresTheNameCutToFortyCharacters)
{
    free->CreateAssociation();
    EXPECT_THAT(links(), ElementsAre("100|Andina Hogar y Cocina, Muebles y Decorac|DV-01",
                                     "200|Andina Deportes|DV-02"));
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(VirtualDepositTest, aLinkedMinistoreIsRefusedBeforeTheDepositIsChecked)
{
    // Both are linked meanwhile; the ministore's refusal comes first.
    database->execute(Sql("INSERT INTO WITIENDAS VALUES ('100', 'x', 'DV-09')"));
    database->execute(Sql("UPDATE WITIENDAS SET IDDepoVDOVEL = 'DV-01' WHERE IdTienda = '200'"));
    free->CreateAssociation();
    EXPECT_EQ(ui->boxTexts(),
              std::vector<std::string>{"Error: -10002: Existe una asociación a la minitienda 100"});
    EXPECT_TRUE(gAppRunning);
}

TEST_F(VirtualDepositTest, aDatabaseFailureIsFatalUnderTheProceduresName)
{
    const std::pair<std::function<void()>, const char *> calls[] = {
        {[&] { free->CreateAssociation(); }, "(VirtualDeposit:CreateAssociation:)"},
        {[&] { linked->RemoveAssociation(); }, "(VirtualDeposit:RemoveAssociation:)"},
        {[&] { free->ministore()->totalPublishedBySeller(); },
         "(ZorvantaMinistore:totalPublishedBySeller)"},
    };
    database.reset();
    for (const auto &[call, source] : calls) {
        gAppRunning = true;
        call();
        EXPECT_THAT(logLines().back(), HasSubstr(std::string("Error: -11000 ") + source +
                                                 ": Error en la base de datos"));
        EXPECT_EQ(ui->boxTexts().end()[-2], kDatabaseBox);
    }
}
