// The back office losing the session at each operation the assistant runs: lost once, the
// assistant opens another session and goes on as if nothing happened; lost for good, the
// operation's message, the program closed, and the tables as the behaviour leaves them.

#include "ConnectorFaultTest.h"

using namespace Cells;
using namespace SellerFlows;

namespace {

const std::string kLost = "-2005:Error al tratar de abrir la sesión";

std::string loss(int operation, bool forGood)
{
    return "EjecutarOperacionW:" + std::to_string(operation) +
           (forGood ? ":sesion-perdida-siempre" : ":sesion-perdida");
}

FlowCell lostOnce(const char *name, int operation, std::function<void()> action,
                  const Texts &tables = kWaiting)
{
    return {name, kBackOfficeFault, loss(operation, false), std::move(action), {}, {}, tables};
}

FlowCell lostForGood(const char *name, int operation, std::function<void()> action,
                     const std::string &logged, const Texts &tables = kWaiting)
{
    return {name,
            kBackOfficeFault,
            loss(operation, true),
            std::move(action),
            {generic(-2005), kClosing},
            logged,
            tables};
}

StartCell atStart(const char *name, int operation, bool forGood, const std::string &source)
{
    if (!forGood)
        return {name, kBackOfficeFault, loss(operation, false), 0, {}, {}};
    return {name,
            kBackOfficeFault,
            loss(operation, true),
            1,
            {"[] " + generic(-2005), std::string("[] ") + kClosing,
             std::string("[] ") + kFatalConnection},
            "Error: -2005 (" + source + "): "};
}

void validateStore100()
{
    const auto store = gSeller->ministores()->item("100");
    store->setUsername("vendedor");
    store->setPassword("clave");
    store->validateUser();
}

void readStores()
{
    gSeller->ministores();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    LostInFlows, FlowFaultTest,
    testing::Values(
        lostOnce("limitsLostOnce", 14, {}),
        lostForGood("limitsLostForGood", 14, {},
                    "Error: -2005 (QDX:QDXGetOperationConfiguration): Error en "
                    "QDX_Obtener_Informacion_Configuracion: EjecutarOperacion (-2005) Error al "
                    "tratar de abrir la sesión"),
        lostOnce("storesLostOnce", 13, readStores),
        lostForGood("storesLostForGood", 13, readStores,
                    "Error: -2005 (Seller:Get ministores): Error llamando a QDX en "
                    "EjecutarOperacion QDX_Obtener_Informacion_Minitiendas : " +
                        kLost),
        lostOnce("userCheckLostOnce", 8, validateStore100),
        lostForGood("userCheckLostForGood", 8, validateStore100,
                    "Error: -2005 (ZorvantaMinistore:ValidateUser): Error llamando a QDX.dll en "
                    "EjecutarOperacion QDX_Validar_Usuario: " +
                        kLost),
        lostOnce("taxesLostOnce", 16, sendStore100, kSent),
        lostForGood("taxesLostForGood", 16, sendStore100,
                    "Error: -2005 (ZorvantaMinistore:setTaxesInZorvanta): Error llamando a "
                    "QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos : " +
                        kLost),
        lostOnce("catalogueOperationsLostOnce", 9, sendStore100, kSent),
        lostForGood("catalogueOperationsLostForGood", 9, sendStore100,
                    "Error: -2005 (ZorvantaMinistore:SendPendingPublications): Error llamando a "
                    "QDX.dll en EjecutarOperacion QDX_Operaciones_Catalogo: " +
                        kLost,
                    kInProgress)),
    CellName());

// The start as the seller sees it: a session lost once costs nothing, one lost for good ends
// the program before its window opens.
INSTANTIATE_TEST_SUITE_P(
    LostAtStart, StartFaultTest,
    testing::Values(atStart("limitsLostOnce", 14, false, {}),
                    atStart("limitsLostForGood", 14, true, "QDX:QDXGetOperationConfiguration"),
                    atStart("storesLostOnce", 13, false, {}),
                    atStart("storesLostForGood", 13, true, "Seller:Get ministores")),
    CellName());
