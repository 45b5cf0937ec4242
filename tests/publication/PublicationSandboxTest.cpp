// A seller publishes, modifies and withdraws a shirt against the sandbox, and reads back the
// published and pending lists with their details through the real ERP library.

#include "AssistantSandbox.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "gateways/CommerceServer.h"
#include "publication/PublishedProduct.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"
#include "shell/Constants.h"
#include "stores/ZorvantaMinistore.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using Texts = std::vector<std::string>;
using Lines = std::vector<std::shared_ptr<ProductLine>>;

class PublicationSandboxTest : public AssistantSandbox
{
protected:
    void SetUp() override
    {
        AssistantSandbox::SetUp();
        m_separator = gDecimalSeparator;
        gDecimalSeparator = ",";
        registerSellerListLines();
        ASSERT_TRUE(CommerceServerInit());
        // The demo shirt ERP-0495, associated in blue, size M, with the marketplace's shirt.
        database->execute(Sql("INSERT INTO WIPRODASOC VALUES (1, 'ERP-0495', 'ZP-00191', "
                              "'<Properties/><VariantProperties><Field fieldID=\"Color\"><![CDATA["
                              "Azul]]></Field><Field fieldID=\"Talla\"><![CDATA[M]]></Field>"
                              "</VariantProperties>', '2026-01-10 09:00:00')"));
        store = gSeller->ministores()->item("100");
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        AssistantSandbox::TearDown();
    }

    /// Every line of the list of `type` in store 100, every page of it.
    Lines list(std::int16_t type)
    {
        auto browser = sellerBrowser();
        browser->setProductType(type);
        browser->setMinistore(store);
        Lines lines;
        for (browser->StartQuery();; browser->GetMore()) {
            for (const auto &line : *browser->products())
                lines.push_back(line);
            if (browser->allRead() != 0)
                return lines;
        }
    }
    static std::shared_ptr<PublishedProduct> publication(const std::shared_ptr<ProductLine> &line)
    {
        auto published = std::dynamic_pointer_cast<PublishedProduct>(line);
        EXPECT_NE(published, nullptr);
        return published;
    }
    /// Each line of the list of `type` as "number|state".
    Texts summary(std::int16_t type)
    {
        Texts texts;
        for (const auto &line : list(type))
            texts.push_back(publication(line)->publicationId() + "|" + publication(line)->state());
        return texts;
    }
    /// Prices of the shirt as the pages give them, over the association the list shows.
    std::shared_ptr<PublishedProduct::Values> prices(const std::string &price,
                                                     const std::shared_ptr<PublishedProduct> &on)
    {
        auto values = std::make_shared<PublishedProduct::Values>();
        for (const char *id : {"Cy_List_Price", "PromoPrice"}) {
            auto value = std::make_shared<ZorvantaValue>();
            value->setDefinition(
                on->AssociatedProduct_theZorvantaProduct()->properties()->item(id));
            value->setValue(price);
            values->add(value, id);
        }
        return values;
    }
    static Texts shown(const std::shared_ptr<PublishedProduct::Values> &values)
    {
        Texts texts;
        for (const auto &value : *values)
            texts.push_back(value->definition()->id() + "=" + value->value());
        return texts;
    }

    std::shared_ptr<ZorvantaMinistore> store;

private:
    std::string m_separator;
};

} // namespace

TEST_F(PublicationSandboxTest, aSellerPublishesModifiesAndWithdrawsAndSeesEachActPending)
{
    const Lines associated = list(1);
    ASSERT_EQ(associated.size(), 1u);
    auto created = std::make_shared<PublishedProduct>();
    created->setAssociatedProd(std::dynamic_pointer_cast<AssociatedProduct>(associated[0]));
    created->setMinistore(store);
    created->setNonCharateristicAttributes(prices("34,99", created));
    created->CreatePublication();
    EXPECT_THAT(summary(2), ElementsAre("1|L"));
    EXPECT_THAT(summary(3), ElementsAre("1|I"));

    // Still local: the modification replaces it by publication 2.
    const auto local = publication(list(2).at(0));
    EXPECT_THAT(shown(local->nonCharateristicAttributes()),
                ElementsAre("Cy_List_Price=34,99", "PromoPrice=34,99"));
    EXPECT_THAT(shown(local->AssociatedProduct_variantattributes()),
                ElementsAre("Color=Azul", "Talla=M"));
    EXPECT_EQ(local->AssociatedProduct_theSellerProduct()->dovelID(), "ERP-0495");
    local->setNonCharateristicAttributes(prices("31,50", local));
    local->UpdatePublication();
    EXPECT_THAT(summary(2), ElementsAre("2|L"));
    EXPECT_THAT(summary(3), ElementsAre("2|I"));

    // Once the marketplace accepted it, a modification waits beside it.
    database->execute(Sql("UPDATE WIPRODPUBL SET Estado = 'K'"));
    database->execute(Sql("DELETE FROM WIPRODPEND"));
    const auto confirmed = publication(list(2).at(0));
    confirmed->setNonCharateristicAttributes(prices("29,90", confirmed));
    confirmed->UpdatePublication();
    EXPECT_THAT(summary(2), ElementsAre("2|K"));
    const auto modification = publication(list(3).at(0));
    EXPECT_EQ(modification->state(), "A");
    EXPECT_THAT(shown(modification->nonCharateristicAttributes()),
                ElementsAre("Cy_List_Price=29,90", "PromoPrice=29,90"));
    EXPECT_EQ(modification->ErrorNumber(), 0);
    EXPECT_EQ(modification->errorMsg(), "");

    // The withdrawal replaces the modification; the publication stays listed until it is sent.
    publication(list(2).at(0))->RemovePublication();
    EXPECT_THAT(summary(2), ElementsAre("2|K"));
    EXPECT_THAT(summary(3), ElementsAre("2|E"));
    EXPECT_TRUE(publication(list(3).at(0))->nonCharateristicAttributes()->empty());
    const auto refused = publication(list(2).at(0));
    refused->setNonCharateristicAttributes(prices("25", refused));
    refused->UpdatePublication();
    EXPECT_THAT(summary(3), ElementsAre("2|E"));
    EXPECT_EQ(ui->boxTexts(),
              Texts{"Error: -10006: La publicación no puede ser actualizada porque existe una "
                    "operación de eliminación para esta publicación"});
    ASSERT_EQ(logLines().size(), 1u) << "the refusal, and nothing else";
    EXPECT_NE(logLines()[0].find("Error: -10006 (PublishedProduct:UpdatePublication:)"),
              std::string::npos);
    EXPECT_TRUE(gAppRunning);
}

TEST_F(PublicationSandboxTest, thePendingListShowsEachOperationOfAPublicationWithItsOwnError)
{
    database->execute(Sql("INSERT INTO WIPRODPUBL VALUES (5, 1, '100', 'P', '', "
                          "'2026-02-01 10:00:00')"));
    database->execute(
        Sql("INSERT INTO WIPRODPEND VALUES (5, 1, '100', 'I', '<Properties/><VariantProperties/>', "
            "'2026-02-01 10:00:00', 3, 'Tienda cerrada', -8101), (5, 1, '100', 'A', "
            "'<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\"><![CDATA[20.5]]>"
            "</Field></VariantProperties>', '2026-02-02 08:05:09', 0, NULL, NULL)"));
    const Lines pending = list(3);
    ASSERT_EQ(pending.size(), 2u);
    const auto publish = publication(pending[0]);
    const auto modify = publication(pending[1]);
    EXPECT_EQ(publish->state() + modify->state(), "IA");
    EXPECT_EQ(publish->publicationType(), 3);
    EXPECT_EQ(modify->publicationDate(), QDateTime(QDate(2026, 2, 2), QTime(8, 5, 9)));
    EXPECT_EQ(publish->errorMsg(), "Tienda cerrada");
    EXPECT_EQ(publish->ErrorNumber(), -8101);
    EXPECT_EQ(modify->errorMsg(), "");
    EXPECT_THAT(shown(modify->nonCharateristicAttributes()), ElementsAre("Cy_List_Price=20,5"));
    EXPECT_EQ(modify->ErrorNumber(), 0);
    EXPECT_TRUE(logLines().empty());
}
