// Replies at and past the edge of the caller's 65535-byte buffer, with no NUL, malformed or in
// Latin-1, from the ERP's taxes and from the back office's answer to a batch, as a send meets
// them: the buffer is never read past its end, and the tables hold either the whole send or
// what the behaviour leaves of a reply it cannot read.

#include "ConnectorFaultTest.h"

using namespace Cells;
using namespace SellerFlows;

namespace {

const std::string kBadTaxes =
    "Error: -10500 (ZorvantaMinistore:getTaxesFromSeller): El XML retornado por "
    "APIDovel.ObtenerImpuestos está mal construido: <ObtenerImpuestos>";
const std::string kBadBatch =
    "Error: -10502 (ZorvantaMinistore:SendPendingPublications ): XML de retorno de QDX.dll en "
    "EjecutarOperacion QDX_Operaciones_Catalogo está mal construído <CatalogOperation>";

FlowCell taxes(const char *name, const std::string &fault, bool readable)
{
    if (readable)
        return {name, kErpFault, "ObtenerImpuestos:" + fault, sendStore100, {}, {}, kSent};
    return {name,      kErpFault, "ObtenerImpuestos:" + fault, sendStore100, {generic(-10500)},
            kBadTaxes, kWaiting};
}

FlowCell batchReply(const char *name, const std::string &fault, bool readable,
                    const std::string &marketplaceFaults = {})
{
    const std::string value = "EjecutarOperacionW:9:" + fault;
    if (readable)
        return {name, kBackOfficeFault, value, sendStore100, {}, {}, kSent};
    return {name,        kBackOfficeFault, value, sendStore100, {generic(-10502)}, kBadBatch,
            kInProgress, marketplaceFaults};
}

StartCell limits(const char *name, const std::string &fault, bool readable)
{
    const std::string value = "EjecutarOperacionW:14:" + fault;
    if (readable)
        return {name, kBackOfficeFault, value, 0, {}, {}};
    return {name,
            kBackOfficeFault,
            value,
            1,
            {"[] " + generic(-10502), std::string("[] ") + kFatalConnection},
            "Error: -10502 (QDX:QDXGetOperationConfiguration): El XML retornado por el QDX en "
            "EjecutarOperacion.QDX_Obtener_Informacion_Configuracion está mal construido: "};
}

} // namespace

// The operation limits, read at the start: a reply the assistant cannot read is not fatal in
// itself, but it is a start that failed.
INSTANTIATE_TEST_SUITE_P(ReplyShapesAtStart, StartFaultTest,
                         testing::Values(limits("limitsOf65534Bytes", "bytes=65534", true),
                                         limits("limitsOf65535Bytes", "bytes=65535", false),
                                         limits("limitsOf65536Bytes", "bytes=65536", false),
                                         limits("limitsWithoutNul", "sin-nul", true),
                                         limits("limitsMalformed", "xml-roto", false)),
                         CellName());

INSTANTIATE_TEST_SUITE_P(
    ReplyShapes, FlowFaultTest,
    testing::Values(
        taxes("taxesOf65534Bytes", "bytes=65534", true),
        taxes("taxesOf65535Bytes", "bytes=65535", false),
        taxes("taxesOf65536Bytes", "bytes=65536", false), taxes("taxesWithoutNul", "sin-nul", true),
        taxes("taxesMalformed", "xml-roto", false), taxes("taxesInLatin1", "no-utf8", false),
        batchReply("batchReplyOf65534Bytes", "bytes=65534", true),
        batchReply("batchReplyOf65535Bytes", "bytes=65535", false),
        batchReply("batchReplyOf65536Bytes", "bytes=65536", false),
        batchReply("batchReplyWithoutNul", "sin-nul", true),
        batchReply("batchReplyMalformed", "xml-roto", false),
        batchReply("batchRefusalInLatin1", "no-utf8", false,
                   "<Fault operation='9' publication='1' code='-8006' description='Sin cupo en "
                   "la categoría'/>")),
    CellName());
