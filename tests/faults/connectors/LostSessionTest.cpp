// The back office losing the session at each operation the assistant runs: lost once, the
// assistant opens another session and goes on as if nothing happened; lost for good, the
// operation's message, the program closed, and the tables as the behaviour leaves them.

#include "ConnectorFaultTest.h"

#include <functional>

using namespace SellerFlows;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

const std::string kLost = "-2005:Error al tratar de abrir la sesión";

struct Loss
{
    const char *name;
    int operation;
    bool forGood;
    std::function<bool()> use; // true when the operation gave what it was asked
    Texts boxes;
    std::string logged; // what the log line starts with; empty: no line
    Texts tables;       // WIPRODPUBL and WIPRODPEND afterwards
};

void PrintTo(const Loss &row, std::ostream *out)
{
    *out << row.name;
}

class LostSessionTest : public ConnectorFaultTest, public testing::WithParamInterface<Loss>
{
};

class LostSessionAtStartTest : public ConnectorFaultTest, public testing::WithParamInterface<Loss>
{
};

std::string rowName(const testing::TestParamInfo<Loss> &info)
{
    return info.param.name;
}

std::string lossOf(const Loss &row)
{
    return "EjecutarOperacionW:" + std::to_string(row.operation) +
           (row.forGood ? ":sesion-perdida-siempre" : ":sesion-perdida");
}

bool validateStore100()
{
    const auto store = gSeller->ministores()->item("100");
    store->setUsername("vendedor");
    store->setPassword("clave");
    return store->validateUser();
}

bool sendGoesThrough()
{
    sendStore100();
    return gAppRunning;
}

const Texts kSent = {"1|K"};
const Texts kWaiting = {"1|L", "pend 1|I|0|0|"};
const Texts kInProgress = {"1|P", "pend 1|I|0|0|"};

} // namespace

TEST_P(LostSessionTest, theAssistantReopensOnceAndOtherwiseStopsWithTheOperationsMessage)
{
    const Loss &row = GetParam();
    sellerWithWorkWaiting();
    startMarketplace();
    fault(kBackOfficeFault, lossOf(row));
    bool started = start();

    const bool done = started && row.use();

    EXPECT_EQ(done, !row.forGood);
    EXPECT_EQ(boxes(), row.boxes);
    if (row.logged.empty()) {
        EXPECT_THAT(logged(), IsEmpty());
    } else {
        EXPECT_THAT(logged(), ElementsAre(StartsWith(row.logged)));
    }
    EXPECT_EQ(sendTables(), row.tables);
    EXPECT_EQ(integrity(), "ok");
}

INSTANTIATE_TEST_SUITE_P(
    EachOperation, LostSessionTest,
    testing::Values(
        Loss{"limitsLostOnce", 14, false, [] { return true; }, {}, {}, kWaiting},
        Loss{"limitsLostForGood",
             14,
             true,
             [] { return true; },
             {"Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "La aplicación será cerrada"},
             "Error: -2005 (QDX:QDXGetOperationConfiguration): Error en "
             "QDX_Obtener_Informacion_Configuracion: EjecutarOperacion (-2005) Error al tratar de "
             "abrir la sesión",
             kWaiting},
        Loss{"storesLostOnce",
             13,
             false,
             [] { return gSeller->ministores() != nullptr; },
             {},
             {},
             kWaiting},
        Loss{"storesLostForGood",
             13,
             true,
             [] { return gSeller->ministores() != nullptr; },
             {"Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "La aplicación será cerrada"},
             "Error: -2005 (Seller:Get ministores): Error llamando a QDX en EjecutarOperacion "
             "QDX_Obtener_Informacion_Minitiendas : " +
                 kLost,
             kWaiting},
        Loss{"userCheckLostOnce",
             8,
             false,
             [] { return validateStore100() || gAppRunning; },
             {},
             {},
             kWaiting},
        Loss{"userCheckLostForGood",
             8,
             true,
             [] { return validateStore100() || gAppRunning; },
             {"Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "La aplicación será cerrada"},
             "Error: -2005 (ZorvantaMinistore:ValidateUser): Error llamando a QDX.dll en "
             "EjecutarOperacion QDX_Validar_Usuario: " +
                 kLost,
             kWaiting},
        Loss{"taxesLostOnce", 16, false, sendGoesThrough, {}, {}, kSent},
        Loss{"taxesLostForGood",
             16,
             true,
             sendGoesThrough,
             {"Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "La aplicación será cerrada"},
             "Error: -2005 (ZorvantaMinistore:setTaxesInZorvanta): Error llamando a QDX.dll en "
             "EjecutarOperacion QDX_Sincronizar_Impuestos : " +
                 kLost,
             kWaiting},
        Loss{"catalogueOperationsLostOnce", 9, false, sendGoesThrough, {}, {}, kSent},
        Loss{"catalogueOperationsLostForGood",
             9,
             true,
             sendGoesThrough,
             {"Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "La aplicación será cerrada"},
             "Error: -2005 (ZorvantaMinistore:SendPendingPublications): ",
             kInProgress}),
    rowName);

// The start as the seller sees it: a session lost once costs nothing, one lost for good ends
// the program before its window opens.
TEST_P(LostSessionAtStartTest, theProgramStartsOrEndsWithStatusOne)
{
    const Loss &row = GetParam();
    startMarketplace();
    fault(kBackOfficeFault, lossOf(row));

    const ProgramRun run = runProgram();

    EXPECT_TRUE(run.exited);
    EXPECT_EQ(run.status, row.forGood ? 1 : 0);
    EXPECT_EQ(run.boxes, row.boxes);
    if (row.logged.empty()) {
        EXPECT_THAT(programLog(), IsEmpty());
    } else {
        EXPECT_THAT(programLog(), ElementsAre(StartsWith(row.logged)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    StartOperations, LostSessionAtStartTest,
    testing::Values(
        Loss{"limitsLostOnce", 14, false, {}, {}, {}, {}},
        Loss{"limitsLostForGood",
             14,
             true,
             {},
             {"[] Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "[] La aplicación será cerrada",
              "[] Ocurrió un error grave de conexión. Contacte al administrador o reintente más "
              "tarde"},
             "Error: -2005 (QDX:QDXGetOperationConfiguration): ",
             {}},
        Loss{"storesLostOnce", 13, false, {}, {}, {}, {}},
        Loss{"storesLostForGood",
             13,
             true,
             {},
             {"[] Error: -2005: Error de la aplicación. Contacte al administrador del sistema",
              "[] La aplicación será cerrada",
              "[] Ocurrió un error grave de conexión. Contacte al administrador o reintente más "
              "tarde"},
             "Error: -2005 (Seller:Get ministores): ",
             {}}),
    rowName);
