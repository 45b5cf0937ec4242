// Replies at and past the edge of the caller's 65535-byte buffer, with no NUL, malformed or in
// Latin-1, from the ERP's taxes and from the back office's answer to a batch, as a send meets
// them: the buffer is never read past its end, and what the tables hold afterwards is either
// the whole send or what the behaviour leaves of a reply it cannot read.

#include "ConnectorFaultTest.h"

#include <fstream>
#include <sstream>

using namespace SellerFlows;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

struct Shape
{
    const char *name;
    const char *variable;
    std::string fault;
    std::string marketplaceFaults; // feria-sim's own, from its data
    Texts boxes;
    std::string logged; // what the one log line starts with; empty: no line
    Texts tables;       // WIPRODPUBL and WIPRODPEND afterwards
};

void PrintTo(const Shape &row, std::ostream *out)
{
    *out << row.name;
}

class ReplyShapeTest : public ConnectorFaultTest, public testing::WithParamInterface<Shape>
{
};

const char *const kErp = "ASISTENTE_ERP_SIM_FAULT";
const char *const kBackOffice = "ASISTENTE_BACKOFFICE_SIM_FAULT";
const std::string kTaxes = "ObtenerImpuestos:";
const std::string kBatch = "EjecutarOperacionW:9:";

const Texts kSent = {"1|K"};
const Texts kWaiting = {"1|L", "pend 1|I|0|0|"};
const Texts kInProgress = {"1|P", "pend 1|I|0|0|"};

std::string generic(std::int32_t number)
{
    return ConnectorFaultTest::generic(number);
}

const std::string kBadTaxes =
    "Error: -10500 (ZorvantaMinistore:getTaxesFromSeller): El XML retornado por "
    "APIDovel.ObtenerImpuestos está mal construido: <ObtenerImpuestos>";
const std::string kBadBatch =
    "Error: -10502 (ZorvantaMinistore:SendPendingPublications ): XML de retorno de QDX.dll en "
    "EjecutarOperacion QDX_Operaciones_Catalogo está mal construído <CatalogOperation>";

} // namespace

TEST_P(ReplyShapeTest, theSendReadsNoFurtherThanTheBufferAndLeavesTheTablesWhole)
{
    const Shape &row = GetParam();
    // An accent in the taxes, for the ERP that writes it in Latin-1.
    std::stringstream data;
    data << std::ifstream(erp->dataFile()).rdbuf();
    std::string text = data.str();
    const std::string plain = "descripcion='IVA general'";
    ASSERT_NE(text.find(plain), std::string::npos);
    text.replace(text.find(plain), plain.size(), "descripcion='IVA de importación'");
    erp->writeRawData(text);
    sellerWithWorkWaiting();
    startMarketplace(row.marketplaceFaults);
    ASSERT_TRUE(start());
    fault(row.variable, row.fault);

    sendStore100();

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
    TaxesAndBatches, ReplyShapeTest,
    testing::Values(
        Shape{"taxesOf65534Bytes", kErp, kTaxes + "bytes=65534", {}, {}, {}, kSent},
        Shape{"taxesOf65535Bytes",
              kErp,
              kTaxes + "bytes=65535",
              {},
              {generic(-10500)},
              kBadTaxes,
              kWaiting},
        Shape{"taxesOf65536Bytes",
              kErp,
              kTaxes + "bytes=65536",
              {},
              {generic(-10500)},
              kBadTaxes,
              kWaiting},
        Shape{"taxesWithoutNul", kErp, kTaxes + "sin-nul", {}, {}, {}, kSent},
        Shape{"taxesMalformed",
              kErp,
              kTaxes + "xml-roto",
              {},
              {generic(-10500)},
              kBadTaxes,
              kWaiting},
        Shape{
            "taxesInLatin1", kErp, kTaxes + "no-utf8", {}, {generic(-10500)}, kBadTaxes, kWaiting},
        Shape{"batchReplyOf65534Bytes", kBackOffice, kBatch + "bytes=65534", {}, {}, {}, kSent},
        Shape{"batchReplyOf65535Bytes",
              kBackOffice,
              kBatch + "bytes=65535",
              {},
              {generic(-10502)},
              kBadBatch,
              kInProgress},
        Shape{"batchReplyOf65536Bytes",
              kBackOffice,
              kBatch + "bytes=65536",
              {},
              {generic(-10502)},
              kBadBatch,
              kInProgress},
        Shape{"batchReplyWithoutNul", kBackOffice, kBatch + "sin-nul", {}, {}, {}, kSent},
        Shape{"batchReplyMalformed",
              kBackOffice,
              kBatch + "xml-roto",
              {},
              {generic(-10502)},
              kBadBatch,
              kInProgress},
        Shape{"batchRefusalInLatin1",
              kBackOffice,
              kBatch + "no-utf8",
              "<Fault operation='9' publication='1' code='-8006' description='Sin cupo en la "
              "categoría'/>",
              {generic(-10502)},
              kBadBatch,
              kInProgress}),
    [](const auto &info) { return std::string(info.param.name); });
