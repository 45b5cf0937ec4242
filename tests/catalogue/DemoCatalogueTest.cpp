// The demo marketplace must give the wizards enough to work with: a deep tree, hundreds of
// products, and templates with every data type and the whole price block.

#include "SandboxTest.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"

#include <set>

namespace {

class DemoCatalogueTest : public SandboxTest
{
};

} // namespace

TEST_F(DemoCatalogueTest, theDemoMarketplaceOffersADeepTreeHundredsOfProductsAndEveryDataType)
{
    struct Visit
    {
        std::shared_ptr<ZorvantaCategory> category;
        int depth;
    };
    std::vector<Visit> pending{{ZorvantaService().RootCategory(), 0}};
    std::set<std::string> products;
    std::set<std::string> dataTypes;
    std::set<std::string> templates;
    std::set<std::string> pricedTemplates;
    const std::set<std::string> priceBlock{"Cy_List_Price",     "PromoPrice",     "WholeSalePrice",
                                           "WholeSaleQuantity", "Group1Price",    "Group1Quantity",
                                           "Group2Price",       "Group2Quantity", "Group3Price",
                                           "Group3Quantity",    "Group4Price",    "Group4Quantity",
                                           "Group5Price",       "Group5Quantity"};
    int deepest = 0;
    while (!pending.empty()) {
        const Visit visit = pending.back();
        pending.pop_back();
        deepest = std::max(deepest, visit.depth);
        visit.category->StartQuery();
        for (;;) {
            for (const auto &product : *visit.category->products())
                products.insert(product->id());
            if (visit.category->allRead())
                break;
            visit.category->GetMore();
        }
        for (const auto &definition : *visit.category->productDefinitions()) {
            templates.insert(definition->id());
            std::set<std::string> ids;
            for (const auto &property : *definition->properties()) {
                dataTypes.insert(property->dataType());
                ids.insert(property->id());
            }
            if (std::includes(ids.begin(), ids.end(), priceBlock.begin(), priceBlock.end()))
                pricedTemplates.insert(definition->id());
        }
        for (const auto &child : *visit.category->children())
            pending.push_back({child, visit.depth + 1});
    }
    EXPECT_GE(deepest, 3);
    EXPECT_GE(products.size(), 300u);
    EXPECT_EQ(dataTypes, (std::set<std::string>{"String", "Integer", "Biginteger", "Float",
                                                "Double", "Currency", "Boolean", "Datetime",
                                                "FilePath", "Enumeration"}));
    EXPECT_GE(templates.size(), 10u);
    EXPECT_EQ(pricedTemplates, templates);
    EXPECT_TRUE(loggedErrors().empty());
}
