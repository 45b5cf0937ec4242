// The marketplace catalogue against feria-sim and the demo seller, through the real libraries.

#include "SandboxTest.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"
#include "catalogue/ZorvantaValue.h"
#include "shell/Constants.h"

#include <set>

namespace {

using Texts = std::vector<std::string>;

class MarketplaceIntegrationTest : public SandboxTest
{
protected:
    void SetUp() override
    {
        SandboxTest::SetUp();
        m_separator = gDecimalSeparator;
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        SandboxTest::TearDown();
    }

    static std::shared_ptr<ZorvantaCategory> visited(const std::string &id)
    {
        auto category = ZorvantaService().RootCategory();
        category->setId(id);
        category->StartQuery();
        return category;
    }

private:
    std::string m_separator;
};

template <class T> Texts idsOf(const std::shared_ptr<Collection<std::shared_ptr<T>>> &items)
{
    Texts ids;
    for (const auto &item : *items)
        ids.push_back(item->id());
    return ids;
}

} // namespace

TEST_F(MarketplaceIntegrationTest, theRootShowsTheTopCategoriesAndNoProducts)
{
    const auto root = ZorvantaService().RootCategory();
    root->StartQuery();
    EXPECT_EQ(idsOf(root->children()),
              (Texts{"ZC-100", "ZC-200", "ZC-300", "ZC-400", "ZC-500", "ZC-600"}));
    EXPECT_EQ(root->children()->item("ZC-300")->name(), "Ropa y calzado");
    EXPECT_TRUE(root->products()->empty());
    EXPECT_TRUE(root->allRead());
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(MarketplaceIntegrationTest, aHundredProductsComeInThreePages)
{
    const auto shirts = visited("ZC-310");
    std::vector<int> pages{shirts->products()->count()};
    std::set<std::string> seen;
    for (const auto &product : *shirts->products())
        seen.insert(product->id());
    while (!shirts->allRead()) {
        shirts->GetMore();
        pages.push_back(shirts->products()->count());
        for (const auto &product : *shirts->products())
            seen.insert(product->id());
    }
    EXPECT_EQ(pages, (std::vector<int>{50, 50, 0}));
    EXPECT_EQ(seen.size(), 100u);
    EXPECT_EQ(shirts->name(), "Camisetas");
}

TEST_F(MarketplaceIntegrationTest, aVariantProductSplitsItsPropertiesInTheThreeGroups)
{
    const auto shirt = visited("ZC-310")->products()->item(1);
    EXPECT_EQ(idsOf(shirt->variantProperties()), (Texts{"Color", "Talla"}));
    const Texts fixed = idsOf(shirt->CharacteristicProperties());
    EXPECT_EQ(fixed, (Texts{"Name", "Description", "Marca", "Material", "Imagen"}));
    const Texts plain = idsOf(shirt->NonCharacteristicProperties());
    for (const char *id : {"Cy_List_Price", "Group5Quantity", "Observaciones", "Existencia"})
        EXPECT_NE(std::find(plain.begin(), plain.end(), id), plain.end()) << id;
    const Texts all = idsOf(shirt->properties());
    for (const char *id : {"ERPID", "VariantID"})
        EXPECT_EQ(std::find(all.begin(), all.end(), id), all.end()) << id;
    EXPECT_EQ(shirt->productDefinition(), "pdVariantProduct");
    EXPECT_EQ(shirt->GetValue("Marca")->value(), "Alpaca Viva");
    EXPECT_EQ(shirt->GetProperty("Color")->possibleValues()->count(), 6);
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(MarketplaceIntegrationTest, aPublishedProductShowsItsDecimalsWithTheMachinesSeparator)
{
    gDecimalSeparator = ",";
    const auto category = visited("ZC-212");
    const auto toaster = category->products()->item("ZP-00150");
    ASSERT_NE(toaster->values(), nullptr);
    // The first of the seller's stores has published it.
    EXPECT_EQ(toaster->GetValue("Cy_List_Price")->value(), "34990,00");
    EXPECT_EQ(toaster->GetValue("CapacidadLitros")->value(), "0,5");
    EXPECT_EQ(toaster->GetValue("PotenciaW")->value(), "1500");
    EXPECT_EQ(toaster->GetValue("CapacidadLitros")->xml().xml(),
              "<Field fieldID=\"CapacidadLitros\"><![CDATA[0.5]]></Field>");
}

TEST_F(MarketplaceIntegrationTest, theTemplatesOfACategoryComeWhole)
{
    const auto clothes = visited("ZC-300");
    const auto definitions = clothes->productDefinitions();
    ASSERT_NE(definitions, nullptr);
    EXPECT_EQ(idsOf(definitions), (Texts{"pdVariantProduct", "pdCalzado"}));
    const auto shirt = definitions->item(1);
    EXPECT_EQ(idsOf(shirt->variantProperties()), (Texts{"Color", "Talla"}));
    // A template keeps the ERP code: the seller's request names it.
    EXPECT_TRUE(shirt->properties()->contains("ERPID"));
    EXPECT_EQ(shirt->values(), nullptr);
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(MarketplaceIntegrationTest, theMarketplaceReceivesTheSellersRequests)
{
    const auto sports = visited("ZC-400");
    const auto created = sports->RequestNewSubcategory("Escalada en roca");
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->name(), "Escalada en roca");
    std::string request = "<RequestNewProduct><Product Definition='pdEquipoDeportivo'>"
                          "<Field fieldID='Name'><![CDATA[Cuerda dinámica]]></Field></Product>"
                          "</RequestNewProduct>";
    sports->RequestNewProduct(request);
    EXPECT_EQ(ui->boxTexts(), Texts{"Solicitud enviada exitosamente"});
    const std::string state = marketplaceState();
    EXPECT_NE(state.find("Escalada en roca"), std::string::npos) << state;
    EXPECT_NE(state.find("Cuerda dinámica"), std::string::npos) << state;
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(MarketplaceIntegrationTest, aRequestTheMarketplaceRefusesShowsBothBoxes)
{
    std::string request = "<RequestNewProduct><Product Definition='pdNoExiste'/>"
                          "</RequestNewProduct>";
    visited("ZC-400")->RequestNewProduct(request);
    EXPECT_EQ(ui->boxTexts().at(0), "Solicitud de producto falló, por favor intente más tarde");
    EXPECT_EQ(loggedError().substr(0, 48), "Error: -8505 (ZorvantaProduct:RequestNewProduct)");
}
