// A connector library that lacks one of its functions: the call that needs it is the one that
// fails, with the loader's own words in the log, and the program closes.

#include "ConnectorFaultTest.h"

using namespace Cells;
using namespace SellerFlows;

namespace {

StartCell missingAtStart(const char *name, const char *function, const char *source,
                         bool linksFail = true)
{
    Texts boxes = {"[Error Fatal] " + generic(453), std::string("[] ") + kClosing};
    if (linksFail)
        boxes.push_back(std::string("[] ") + kFatalConnection);
    return {name,  libraryVariable(function),   libraryWithout(function), 1,
            boxes, missingLog(source, function)};
}

FlowCell missingInFlow(const char *name, const char *function, const char *source,
                       std::function<void()> action)
{
    return {name,
            libraryVariable(function),
            libraryWithout(function),
            std::move(action),
            {generic(453), kClosing},
            missingLog(source, function),
            kWaiting};
}

} // namespace

// The ERP's database coordinates failing leaves the links answering: the start ends without
// the connection message. Closing the session is the window's last act: the seller has worked.
INSTANTIATE_TEST_SUITE_P(
    MissingAtStart, StartFaultTest,
    testing::Values(
        missingAtStart("noClientIdentity", "ObtenerIDCliente", "Seller:Sub GetClientInfo"),
        missingAtStart("noDatabaseCoordinates", "ObtenerDataBase", "Seller:Sub GetClientInfo",
                       false),
        missingAtStart("noSessionOpening", "IniciarSesionW", "Seller:sessionId "),
        missingAtStart("noOperations", "EjecutarOperacionW", "QDX:EjecutarOperacion"),
        missingAtStart("noSessionClosing", "CerrarSesionW", "Seller:Sub closeSession", false)),
    CellName());

INSTANTIATE_TEST_SUITE_P(
    MissingInFlows, FlowFaultTest,
    testing::Values(missingInFlow("noDepositList", "ListarDepositosVirtuales",
                                  "Seller:virtualDeposits ", listDeposits),
                    missingInFlow("noCategoryContents", "ObtenerContenidoCategoria",
                                  "DovelCategory:GetMore Method", browseRootCategory),
                    missingInFlow("noProductSearch", "BusquedaProductosIndividual",
                                  "ProductBrowser:GetMore Method", searchProducts),
                    missingInFlow("noProductDetail", "ObtenerDefinicionProducto",
                                  "SellerProduct:getDetailInformation", readProductDetail),
                    missingInFlow("noTaxesForTheSend", "ObtenerImpuestos",
                                  "ZorvantaMinistore:getTaxesFromSeller", sendStore100)),
    CellName());
