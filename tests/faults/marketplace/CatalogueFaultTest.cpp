// The marketplace's catalogue read through a failing network: the category tree, a product's
// information and a category's templates, each under every fault the proxy can script.

#include "MarketplaceFaultTest.h"
#include "NetworkFaults.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaService.h"
#include "shell/AppState.h"

#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

template <class Items> Texts idsOf(const Items &items)
{
    Texts ids;
    if (items) {
        for (int i = 1; i <= items->count(); ++i)
            ids.push_back(items->item(i)->id());
    }
    return ids;
}

/// One read a page makes of the catalogue, with what it needs read first and what the page
/// shows when the read succeeds.
struct CatalogueRead
{
    const char *name;
    const char *action;
    std::vector<std::pair<std::string, std::string>> renames;
    /// The handler that reports the failure, and the system's words for the wrong document.
    const char *source;
    const char *wrongDocument;
    std::function<void(CatalogueRead &)> prepare;
    /// The read itself, giving what the page shows.
    std::function<Texts(CatalogueRead &)> read;
    Texts delivered;
    std::shared_ptr<ZorvantaCategory> category;
};

std::vector<CatalogueRead> catalogueReads()
{
    return {
        {"categories",
         "GetCategoryContent",
         {{"CurrentCategory", "CategoriaActual"}},
         "ZorvantaCategory:GetMore Method",
         "GetCategoryContent no tiene el nodo CurrentCategory",
         [](CatalogueRead &read) { read.category = ZorvantaService().RootCategory(); },
         [](CatalogueRead &read) {
             read.category->StartQuery();
             return idsOf(read.category->children());
         },
         {"ZC-100", "ZC-200", "ZC-300", "ZC-400", "ZC-500", "ZC-600"},
         nullptr},
        {"productInformation",
         "GetProductInformation",
         {{"PropertiesDefinition", "DefinicionPropiedades"}},
         "ZorvantaProduct:Get Properties",
         "GetProductInformation no tiene el nodo PropertiesDefinition",
         [](CatalogueRead &read) {
             // The page lists the shirts and knows the seller's stores before it asks.
             read.category = ZorvantaService().RootCategory();
             read.category->setId("ZC-310");
             read.category->StartQuery();
             ASSERT_NE(gSeller->ministores(), nullptr);
         },
         [](CatalogueRead &read) {
             // The pages ask for the whole list; its groups are read from it once it came.
             const auto shirt = read.category->products()->item(1);
             return shirt->properties() ? idsOf(shirt->variantProperties()) : Texts{};
         },
         {"Color", "Talla"},
         nullptr},
        {"productTemplates",
         "GetProductDefinition",
         {{"PropertiesDefinition", "DefinicionPropiedades"}},
         "ZorvantaCategory:productDefinitions Property Get",
         "GetProductDefinitions no tiene el nodo PropertiesDefinition",
         [](CatalogueRead &read) {
             read.category = ZorvantaService().RootCategory();
             read.category->setId("ZC-110");
         },
         [](CatalogueRead &read) { return idsOf(read.category->productDefinitions()); },
         {"pdTelevisor"},
         nullptr},
    };
}

struct Cell
{
    CatalogueRead read;
    NetworkFaultCase fault;
};

void PrintTo(const Cell &cell, std::ostream *out)
{
    *out << cell.fault.name;
}

std::vector<Cell> cells()
{
    std::vector<Cell> all;
    for (const CatalogueRead &read : catalogueReads()) {
        for (const NetworkFaultCase &fault : networkFaults("", read.action, read.renames))
            all.push_back({read, fault});
    }
    return all;
}

class CatalogueFaultTest : public MarketplaceFaultTest, public testing::WithParamInterface<Cell>
{
};

} // namespace

TEST_P(CatalogueFaultTest, theSellerSeesTheSystemsOwnMessageAndTheTablesStayAsTheyWere)
{
    Cell cell = GetParam();
    cell.read.prepare(cell.read);
    ASSERT_THAT(ui->boxTexts(), ElementsAre()) << "before the fault";
    if (cell.fault.rule)
        proxy->add(*cell.fault.rule);
    else
        proxy->refuseConnections();

    const Texts shown = cell.read.read(cell.read);

    switch (cell.fault.end) {
    case FaultEnd::Delivered:
        EXPECT_EQ(shown, cell.read.delivered);
        EXPECT_THAT(ui->boxTexts(), ElementsAre());
        EXPECT_THAT(logLines(), ElementsAre());
        EXPECT_TRUE(gAppRunning);
        break;
    case FaultEnd::PlatformError:
        EXPECT_THAT(ui->boxTexts(), ElementsAre(kPlatformErrorBox, "La aplicación será cerrada"));
        EXPECT_EQ(ui->boxes().front().title, "Error Fatal");
        EXPECT_THAT(logLines(),
                    ElementsAre(HasSubstr(std::string("Error: 440 (") + cell.read.source + "): ")));
        EXPECT_THAT(logLines(), ElementsAre(HasSubstr(cell.fault.logged)));
        EXPECT_FALSE(gAppRunning);
        break;
    case FaultEnd::WrongDocument:
        EXPECT_THAT(ui->boxTexts(),
                    ElementsAre("Error: -10503: Error de la aplicación. Contacte al "
                                "administrador del sistema"));
        EXPECT_THAT(logLines(), ElementsAre(HasSubstr(cell.read.wrongDocument)));
        EXPECT_TRUE(gAppRunning);
        break;
    }
}

INSTANTIATE_TEST_SUITE_P(Marketplace, CatalogueFaultTest, testing::ValuesIn(cells()),
                         [](const testing::TestParamInfo<Cell> &info) {
                             return std::string(info.param.read.name) + "_" + info.param.fault.name;
                         });
