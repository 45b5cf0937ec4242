// The seller's requests for a new category, product or template through a failing network:
// what the seller is told, and whether the marketplace got the request.

#include "MarketplaceFaultTest.h"
#include "NetworkFaults.h"
#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaService.h"
#include "shell/AppState.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

/// One call the request wizard makes when the seller confirms, with the boxes a request that
/// arrives shows.
struct SellerRequest
{
    const char *name;
    const char *action;
    const char *source;
    Texts delivered;
};

const SellerRequest kRequests[] = {
    {"newCategory", "RequestNewCategory", "ZorvantaCategory:RequestNewSubcategory Method", {}},
    {"newProduct",
     "RequestNewProduct",
     "ZorvantaProduct:RequestNewProduct Method",
     {"Solicitud enviada exitosamente"}},
    {"newTemplate",
     "RequestNewProductDef",
     "ZorvantaCategory:RequestNewProductDefinition Method",
     {"Solicitud enviada exitosamente"}},
};

struct Cell
{
    SellerRequest request;
    NetworkFaultCase fault;
};

void PrintTo(const Cell &cell, std::ostream *out)
{
    *out << cell.fault.name;
}

std::vector<Cell> cells()
{
    std::vector<Cell> all;
    for (const SellerRequest &request : kRequests) {
        // The request's reply says nothing but its status; without it the request stands.
        for (const NetworkFaultCase &fault :
             networkFaults("", request.action, {{"RESULT", "RESULTADO"}}))
            all.push_back({request, fault});
    }
    return all;
}

class RequestFaultTest : public MarketplaceFaultTest, public testing::WithParamInterface<Cell>
{
};

// Sends the request named `what` under the sports category; true when the seller holds the
// new category (a subcategory request) or the call came back (the others).
bool send(const SellerRequest &request, const std::string &what)
{
    const auto sports = ZorvantaService().RootCategory();
    sports->setId("ZC-400");
    const std::string action = request.action;
    if (action == "RequestNewCategory")
        return sports->RequestNewSubcategory(what) != nullptr;
    // A product names its template; a template request names the product it is for.
    std::string document =
        action == "RequestNewProduct"
            ? "<RequestNewProduct><Product Definition='pdEquipoDeportivo'><Field "
              "fieldID='Name'><![CDATA[" +
                  what + "]]></Field></Product></RequestNewProduct>"
            : "<RequestNewProductDef><Name><![CDATA[" + what + "]]></Name></RequestNewProductDef>";
    if (action == "RequestNewProduct")
        sports->RequestNewProduct(document);
    else
        sports->RequestNewProductDefinition(document);
    return true;
}

} // namespace

TEST_P(RequestFaultTest, theSellerIsToldHowItWentAndTheMarketplaceHoldsOnlyWhatReachedIt)
{
    const Cell &cell = GetParam();
    ASSERT_NE(gSeller->ministores(), nullptr) << "the request goes to the first store";
    if (cell.fault.rule)
        proxy->add(*cell.fault.rule);
    else
        proxy->refuseConnections();
    const std::string what = std::string("Solicitud ") + cell.request.name + " " + cell.fault.name;

    const bool sent = send(cell.request, what);

    // The marketplace acts on a request it read whole, whatever happens to its answer.
    const bool reached = cell.fault.rule && (cell.fault.rule->fault == NetworkFault::Cut ||
                                             cell.fault.rule->fault == NetworkFault::Drip ||
                                             cell.fault.rule->fault == NetworkFault::Rename);
    EXPECT_EQ(marketplaceState().find(what) != std::string::npos, reached);
    if (cell.fault.end == FaultEnd::PlatformError) {
        EXPECT_THAT(ui->boxTexts(), ElementsAre(kPlatformErrorBox, "La aplicación será cerrada"));
        EXPECT_THAT(logLines(), ElementsAre(HasSubstr(std::string("Error: 440 (") +
                                                      cell.request.source + "): ")));
        EXPECT_THAT(logLines(), ElementsAre(HasSubstr(cell.fault.logged)));
        EXPECT_FALSE(gAppRunning);
        if (std::string(cell.request.action) == "RequestNewCategory") {
            EXPECT_FALSE(sent);
        }
    } else {
        EXPECT_TRUE(sent);
        EXPECT_THAT(ui->boxTexts(), ElementsAreArray(cell.request.delivered));
        EXPECT_THAT(logLines(), ElementsAre());
        EXPECT_TRUE(gAppRunning);
    }
}

INSTANTIATE_TEST_SUITE_P(Marketplace, RequestFaultTest, testing::ValuesIn(cells()),
                         [](const testing::TestParamInfo<Cell> &info) {
                             return std::string(info.param.request.name) + "_" +
                                    info.param.fault.name;
                         });
