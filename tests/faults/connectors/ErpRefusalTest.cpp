// Each ERP function answering a code of refusal: the call's own message in the log, the fatal
// box, the program closed, and nothing written to the tables.

#include "ConnectorFaultTest.h"

using namespace Cells;
using namespace SellerFlows;

namespace {

// The ERP's "the seller's database cannot be read": not a paging code of any function.
const std::string kRefusal = "9003";

StartCell refusedAtStart(const char *name, const char *function, bool linksFail)
{
    Texts boxes = {"[Error Fatal] " + fatal(-11001), std::string("[] ") + kClosing};
    if (linksFail)
        boxes.push_back(std::string("[] ") + kFatalConnection);
    return {name,
            kErpFault,
            std::string(function) + ":codigo=" + kRefusal,
            1,
            boxes,
            "Error: -11001 (Seller:GetClientInfo): APIDovel." + std::string(function) +
                " falló con código de error " + kRefusal};
}

FlowCell refusedInFlow(const char *name, const char *function, std::function<void()> action,
                       const std::string &logged)
{
    return {name,
            kErpFault,
            std::string(function) + ":codigo=" + kRefusal,
            std::move(action),
            {fatal(-11001), kClosing},
            logged + kRefusal,
            kWaiting};
}

} // namespace

// Without its database's coordinates the assistant still reaches every link, so it ends
// without the connection message.
INSTANTIATE_TEST_SUITE_P(
    RefusedAtStart, StartFaultTest,
    testing::Values(refusedAtStart("clientIdentityRefused", "ObtenerIDCliente", true),
                    refusedAtStart("databaseCoordinatesRefused", "ObtenerDataBase", false)),
    CellName());

INSTANTIATE_TEST_SUITE_P(
    RefusedInFlows, FlowFaultTest,
    testing::Values(
        refusedInFlow("depositListRefused", "ListarDepositosVirtuales", listDeposits,
                      "Error: -11001 (Seller:virtualDeposits Property Get): "
                      "APIDovel.ListarDepositosVirtuales falló con error "),
        refusedInFlow("categoryContentsRefused", "ObtenerContenidoCategoria", browseRootCategory,
                      "Error: -11001 (DovelCategory:getMore): La función "
                      "APIDovel.ObtenerContenidoCategoria retornó con error "),
        refusedInFlow("productSearchRefused", "BusquedaProductosIndividual", searchProducts,
                      "Error: -11001 (ProductBrowser:getMore): La función "
                      "APIDovel.BusquedaProductosIndividual retornó con error "),
        refusedInFlow("productDetailRefused", "ObtenerDefinicionProducto", readProductDetail,
                      "Error: -11001 (DovelCategory:startQuery): La función "
                      "APIDovel.ObtenerInformacionProducto retornó con error "),
        refusedInFlow("taxesRefusedAtTheSend", "ObtenerImpuestos", sendStore100,
                      "Error: -11001 (ZorvantaMinistore:getTaxesFromSeller): La función "
                      "APIDovel.ObtenerImpuestos retornó con error ")),
    CellName());

// The ERP failing the database's coordinates leaves the links answering, so the start goes on;
// but the seller has been told that the assistant closes, and no window may open after that.
struct FatalStart
{
    const char *name;
    const char *variable;
    std::string value;
    std::string box;
};

void PrintTo(const FatalStart &row, std::ostream *out)
{
    *out << row.name;
}

class FatalStartTest : public ConnectorFaultTest, public testing::WithParamInterface<FatalStart>
{
};

TEST_P(FatalStartTest, aFatalErrorDuringTheLinkChecksOpensNoWindow)
{
    const FatalStart &row = GetParam();
    startMarketplace();
    setenv(row.variable, row.value.c_str(), 1);

    EXPECT_FALSE(startWizardShowsWindow());

    EXPECT_EQ(boxes(), Texts({row.box, kClosing}));
    EXPECT_FALSE(gAppRunning);
}

INSTANTIATE_TEST_SUITE_P(
    DatabaseCoordinates, FatalStartTest,
    testing::Values(FatalStart{"refused", kErpFault, "ObtenerDataBase:codigo=" + kRefusal,
                               fatal(-11001)},
                    FatalStart{"missing", "ASISTENTE_ERP_LIBRARY",
                               libraryWithout("ObtenerDataBase"), generic(453)}),
    CellName());
