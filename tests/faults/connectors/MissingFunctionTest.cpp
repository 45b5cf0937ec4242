// A connector library that lacks one of its functions: the call that needs it is the one that
// fails, with the loader's own words in the log, and the program closes.

#include "ConnectorFaultTest.h"

#include <functional>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

using namespace SellerFlows;

namespace {

struct Missing
{
    const char *name;
    const char *function;
    const char *source; // the procedure whose handler reports it
    std::function<void()> use;
    bool linksFail = true; // a start function: whether the link checks themselves fail
};

void PrintTo(const Missing &row, std::ostream *out)
{
    *out << row.name;
}

class MissingFunctionTest : public ConnectorFaultTest, public testing::WithParamInterface<Missing>
{
};

class MissingAtStartTest : public ConnectorFaultTest, public testing::WithParamInterface<Missing>
{
};

} // namespace

// Functions of the start: the real program shows the loader's error, closes, and never opens
// its window.
TEST_P(MissingAtStartTest, theProgramEndsWithTheFatalMessageAndStatusOne)
{
    const Missing &row = GetParam();
    startMarketplace();
    setenv(libraryVariable(row.function), libraryWithout(row.function).c_str(), 1);

    const ProgramRun run = runProgram();

    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, 1);
    Texts boxes = {"[Error Fatal] " + generic(453), std::string("[] ") + kClosing};
    if (row.linksFail)
        boxes.push_back(std::string("[] ") + kFatalConnection);
    EXPECT_EQ(run.boxes, boxes);
    const Texts log = programLog();
    ASSERT_THAT(log, SizeIs(1));
    EXPECT_THAT(log[0], HasSubstr(std::string("Error: 453 (") + row.source + "): "));
    EXPECT_THAT(log[0], HasSubstr(std::string(" has no function ") + row.function + ": "));
    EXPECT_THAT(log[0], HasSubstr("undefined symbol: " + std::string(row.function)));
}

INSTANTIATE_TEST_SUITE_P(
    StartFunctions, MissingAtStartTest,
    testing::Values(
        Missing{"noClientIdentity", "ObtenerIDCliente", "Seller:Sub GetClientInfo", {}},
        Missing{"noDatabaseCoordinates", "ObtenerDataBase", "Seller:Sub GetClientInfo", {}, false},
        Missing{"noSessionOpening", "IniciarSesionW", "Seller:sessionId ", {}},
        Missing{"noOperations", "EjecutarOperacionW", "QDX:EjecutarOperacion", {}}),
    [](const auto &info) { return std::string(info.param.name); });

// Closing the session is the last thing the window does: the seller has worked, and is told.
TEST_F(ConnectorFaultTest, aProgramWithoutCerrarSesionWTellsItAsTheWindowCloses)
{
    startMarketplace();
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", libraryWithout("CerrarSesionW").c_str(), 1);

    const ProgramRun run = runProgram();

    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.boxes,
                ElementsAre("[Error Fatal] " + generic(453), std::string("[] ") + kClosing));
    const Texts log = programLog();
    ASSERT_THAT(log, SizeIs(1));
    EXPECT_THAT(log[0], HasSubstr("Error: 453 (Seller:Sub closeSession): "));
    EXPECT_THAT(log[0], HasSubstr(" has no function CerrarSesionW: "));
}

// Functions of the flows: the start succeeds, and the first page or send that needs the
// function stops there, with the tables as they were.
TEST_P(MissingFunctionTest, theFlowStopsWithTheLoadersErrorAndTheTablesAsTheyWere)
{
    const Missing &row = GetParam();
    sellerWithWorkWaiting();
    const Texts before = fourTables();
    setenv("ASISTENTE_ERP_LIBRARY", libraryWithout(row.function).c_str(), 1);
    startMarketplace();
    ASSERT_TRUE(start());

    row.use();

    EXPECT_EQ(boxes(), Texts({generic(453), kClosing}));
    const Texts log = logged();
    ASSERT_THAT(log, SizeIs(1));
    EXPECT_THAT(log[0], HasSubstr(std::string("Error: 453 (") + row.source + "): "));
    EXPECT_THAT(log[0], HasSubstr(std::string(" has no function ") + row.function + ": "));
    EXPECT_EQ(fourTables(), before);
    EXPECT_EQ(integrity(), "ok");
    EXPECT_FALSE(gAppRunning);
}

INSTANTIATE_TEST_SUITE_P(
    FlowFunctions, MissingFunctionTest,
    testing::Values(Missing{"noDepositList", "ListarDepositosVirtuales", "Seller:virtualDeposits ",
                            listDeposits},
                    Missing{"noCategoryContents", "ObtenerContenidoCategoria",
                            "DovelCategory:GetMore Method", browseRootCategory},
                    Missing{"noProductSearch", "BusquedaProductosIndividual",
                            "ProductBrowser:GetMore Method", searchProducts},
                    Missing{"noProductDetail", "ObtenerDefinicionProducto",
                            "SellerProduct:getDetailInformation", readProductDetail},
                    Missing{"noTaxesForTheSend", "ObtenerImpuestos",
                            "ZorvantaMinistore:getTaxesFromSeller", sendStore100}),
    [](const auto &info) { return std::string(info.param.name); });
