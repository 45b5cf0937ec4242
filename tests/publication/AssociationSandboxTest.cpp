// Associations made, listed and removed against the sandbox: the demo ERP and marketplace, the
// real connector libraries and the seller's embedded database.

#include "AssistantSandbox.h"
#include "PropertyValues.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "gateways/CommerceServer.h"
#include "publication/AssociatedProduct.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"

#include <gmock/gmock.h>
#include <tuple>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Associations = std::vector<std::shared_ptr<AssociatedProduct>>;
using Texts = std::vector<std::string>;

class AssociationSandboxTest : public AssistantSandbox
{
protected:
    void SetUp() override
    {
        AssistantSandbox::SetUp();
        registerSellerListLines();
        ASSERT_TRUE(CommerceServerInit());
    }

    /// Associates an ERP product, found by its code, with a marketplace product, giving values
    /// to variant properties as the wizard does.
    static void associate(const std::string &code, const std::string &marketplaceId,
                          const PropertyPairs &chosen = {})
    {
        auto browser = sellerBrowser();
        browser->setSearchString(code);
        browser->StartQuery();
        auto product = std::make_shared<ZorvantaProduct>();
        product->setId(marketplaceId);
        AssociatedProduct association;
        association.setSellerProd(browser->products()->item(1)->sellerProduct());
        association.setZorvantaProd(product);
        association.setVariantattributes(propertyValues(*product->variantProperties(), chosen));
        association.CreateAssociation();
    }
    /// The associated list, every page of it, as the list page reads it.
    static Associations associatedList()
    {
        auto browser = sellerBrowser();
        browser->setProductType(1);
        Associations lines;
        for (browser->StartQuery();; browser->GetMore()) {
            for (const auto &line : *browser->products())
                lines.push_back(std::dynamic_pointer_cast<AssociatedProduct>(line));
            if (browser->allRead() != 0)
                return lines;
        }
    }
    Texts rows()
    {
        return database->rows(Sql("SELECT IdPrdAsociado, IdPrdDovel, IdPrdZorvanta, Atributos "
                                  "FROM WIPRODASOC ORDER BY IdPrdAsociado"));
    }
    Texts errors() const
    {
        Texts errors;
        for (const std::string &line : logLines())
            errors.push_back(line.substr(line.find("Error: ")));
        return errors;
    }
};

} // namespace

TEST_F(AssociationSandboxTest, aSellerAssociatesWithAndWithoutVariantValuesAndSeesTheList)
{
    // A coffee maker has no variant property in the marketplace; a shirt has colour and size.
    associate("ERP-0148", "ZP-00152");
    associate("ERP-0495", "ZP-00191", {{"Color", "Azul"}, {"Talla", "M"}});
    EXPECT_THAT(rows(), ElementsAre("1|ERP-0148|ZP-00152|<Properties/><VariantProperties/>",
                                    "2|ERP-0495|ZP-00191|<Properties/><VariantProperties><Field "
                                    "fieldID=\"Color\"><![CDATA[Azul]]></Field><Field "
                                    "fieldID=\"Talla\"><![CDATA[M]]></Field>"
                                    "</VariantProperties>"));

    const Associations list = associatedList();
    ASSERT_EQ(list.size(), 2u);
    ASSERT_NE(list[0], nullptr);
    ASSERT_NE(list[1], nullptr);
    EXPECT_EQ(list[0]->associationId(), "1");
    EXPECT_EQ(list[0]->SellerProduct_Description(), "Cafetera de goteo Hogarín 4 tazas");
    EXPECT_EQ(list[0]->theZorvantaProduct()->id(), "ZP-00152");
    EXPECT_EQ(list[1]->associationId(), "2");
    EXPECT_EQ(list[1]->SellerProduct_dovelID(), "ERP-0495");

    // The shirt's detail: the seller's choices, as variant values of the marketplace's shirt.
    const auto values = list[1]->variantattributes();
    ASSERT_NE(values, nullptr);
    ASSERT_EQ(values->count(), 2);
    EXPECT_EQ(values->item("Color")->value(), "Azul");
    EXPECT_EQ(values->item("Talla")->value(), "M");
    EXPECT_TRUE(values->item("Talla")->definition()->isVariant());
    EXPECT_LE(list[1]->associationDate().secsTo(QDateTime::currentDateTime()), 60);
    EXPECT_EQ(list[1]->SellerProduct_price1(), "12.90");
    EXPECT_TRUE(list[0]->variantattributes()->empty());
    EXPECT_TRUE(logLines().empty());
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(AssociationSandboxTest, aRowTheMarketplaceCannotReadFailsWhenShownNotWhenListed)
{
    const std::tuple<const char *, std::string, std::string, bool> rows[] = {
        {"a value of a property the marketplace dropped",
         "<Properties/><VariantProperties><Field fieldID=\"Sabor\"><![CDATA[Vainilla]]></Field>"
         "</VariantProperties>",
         "Error: 5 (AssociatedProduct:xml Property Set)", false},
        {"attributes that are no XML", "<Properties>",
         "Error: -10500 (AssociatedProduct:getDetailInformation): El XML retornado por "
         "APIDovel.ObtenerDefinicionProducto está mal construido: ",
         true},
    };
    for (const auto &[what, attributes, error, goesOn] : rows) {
        SCOPED_TRACE(what);
        database->execute(Sql("DELETE FROM WIPRODASOC"));
        database->execute(Sql() << "INSERT INTO WIPRODASOC VALUES (1, 'ERP-0148', 'ZP-00152', '"
                                << sqlText(attributes) << "', '2026-01-10 09:00:00')");
        std::filesystem::remove(workDir / "bitacora.log");
        gAppRunning = true;
        const Associations list = associatedList();
        ASSERT_EQ(list.size(), 1u);
        EXPECT_TRUE(logLines().empty());
        list[0]->variantattributes();
        ASSERT_FALSE(errors().empty());
        EXPECT_THAT(errors().front(), HasSubstr(error));
        EXPECT_EQ(gAppRunning, goesOn);
    }
}
