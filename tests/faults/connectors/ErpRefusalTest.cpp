// Each ERP function answering a code of refusal: the call's own message in the log, the fatal
// box, the program closed, and nothing written to the tables.

#include "ConnectorFaultTest.h"

#include <functional>

using namespace SellerFlows;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

// The ERP's "the seller's database cannot be read": not a paging code of any function.
constexpr const char *kRefusal = "9003";

struct Refusal
{
    const char *name;
    const char *function;
    std::function<void()> use; // empty: the function is one of the start's
    const char *logged;
    bool linksFail = true; // a start function: whether the link checks themselves fail
};

void PrintTo(const Refusal &row, std::ostream *out)
{
    *out << row.name;
}

class ErpRefusalAtStartTest : public ConnectorFaultTest, public testing::WithParamInterface<Refusal>
{
};

class ErpRefusalTest : public ConnectorFaultTest, public testing::WithParamInterface<Refusal>
{
};

std::string rowName(const testing::TestParamInfo<Refusal> &info)
{
    return info.param.name;
}

} // namespace

TEST_P(ErpRefusalAtStartTest, theProgramEndsWithTheFatalMessageAndStatusOne)
{
    const Refusal &row = GetParam();
    startMarketplace();
    fault(kErpFault, std::string(row.function) + ":codigo=" + kRefusal);

    const ProgramRun run = runProgram();

    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, 1);
    Texts boxes = {"[Error Fatal] " + fatal(-11001), std::string("[] ") + kClosing};
    if (row.linksFail)
        boxes.push_back(std::string("[] ") + kFatalConnection);
    EXPECT_EQ(run.boxes, boxes);
    EXPECT_EQ(programLog(), Texts{row.logged});
}

INSTANTIATE_TEST_SUITE_P(
    StartFunctions, ErpRefusalAtStartTest,
    testing::Values(Refusal{"clientIdentityRefused",
                            "ObtenerIDCliente",
                            {},
                            "Error: -11001 (Seller:GetClientInfo): APIDovel.ObtenerIDCliente "
                            "falló con código de error 9003"},
                    Refusal{"databaseCoordinatesRefused",
                            "ObtenerDataBase",
                            {},
                            "Error: -11001 (Seller:GetClientInfo): APIDovel.ObtenerDataBase "
                            "falló con código de error 9003",
                            false}),
    rowName);

TEST_P(ErpRefusalTest, theCallsMessageClosesTheProgramAndTheTablesStayAsTheyWere)
{
    const Refusal &row = GetParam();
    sellerWithWorkWaiting();
    const Texts before = fourTables();
    startMarketplace();
    ASSERT_TRUE(start());
    fault(kErpFault, std::string(row.function) + ":codigo=" + kRefusal);

    row.use();

    EXPECT_EQ(boxes(), Texts({fatal(-11001), kClosing}));
    EXPECT_EQ(logged(), Texts{row.logged});
    EXPECT_FALSE(gAppRunning);
    EXPECT_EQ(fourTables(), before);
    EXPECT_EQ(integrity(), "ok");
    EXPECT_THAT(wire(), SizeIs(0)) << "nothing reaches the marketplace";
}

INSTANTIATE_TEST_SUITE_P(
    FlowFunctions, ErpRefusalTest,
    testing::Values(
        Refusal{"depositListRefused", "ListarDepositosVirtuales", listDeposits,
                "Error: -11001 (Seller:virtualDeposits Property Get): "
                "APIDovel.ListarDepositosVirtuales falló con error 9003"},
        Refusal{"categoryContentsRefused", "ObtenerContenidoCategoria", browseRootCategory,
                "Error: -11001 (DovelCategory:getMore): La función "
                "APIDovel.ObtenerContenidoCategoria retornó con error 9003"},
        Refusal{"productSearchRefused", "BusquedaProductosIndividual", searchProducts,
                "Error: -11001 (ProductBrowser:getMore): La función "
                "APIDovel.BusquedaProductosIndividual retornó con error 9003"},
        Refusal{"productDetailRefused", "ObtenerDefinicionProducto", readProductDetail,
                "Error: -11001 (DovelCategory:startQuery): La función "
                "APIDovel.ObtenerInformacionProducto retornó con error 9003 para el idDovel: E-1"},
        Refusal{"taxesRefusedAtTheSend", "ObtenerImpuestos", sendStore100,
                "Error: -11001 (ZorvantaMinistore:getTaxesFromSeller): La función "
                "APIDovel.ObtenerImpuestos retornó con error 9003"}),
    rowName);

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
    testing::Values(FatalStart{"refused", "ASISTENTE_ERP_SIM_FAULT",
                               std::string("ObtenerDataBase:codigo=") + kRefusal,
                               ConnectorFaultTest::fatal(-11001)},
                    FatalStart{"missing", "ASISTENTE_ERP_LIBRARY",
                               ConnectorFaultTest::libraryWithout("ObtenerDataBase"),
                               ConnectorFaultTest::generic(453)}),
    [](const auto &info) { return std::string(info.param.name); });
