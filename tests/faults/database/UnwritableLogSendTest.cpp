// `asistentectl enviar` with a bitacora.log that cannot be written. A send with nothing to
// record does not notice; one with an error to record stops at it and says why on standard
// error, with every operation before it applied and the one in hand untouched.

#include "AsistentectlTest.h"

using ::testing::ElementsAreArray;

namespace {

const char *const kRefusal =
    "<Fault operation='9' publication='2' code='-8006' description='Sin cupo'/>";

struct UnwritableLog
{
    const char *name;
    bool fullDevice; // else a folder takes the log's name: unwritable for root too
    const char *fault;
    int status;
    Texts errors;
    Texts tables;
};

void PrintTo(const UnwritableLog &log, std::ostream *out)
{
    *out << log.name;
}

} // namespace

class UnwritableLogSendTest : public AsistentectlTest,
                              public ::testing::WithParamInterface<UnwritableLog>
{
};

TEST_P(UnwritableLogSendTest, theSellerIsToldOnStandardErrorAndNothingIsHalfApplied)
{
    const UnwritableLog &row = GetParam();
    openMarketplace(row.fault);
    link("100", "DV-01");
    waiting(1, "E-1", "ZP-1", "L", "I", price("1.00"), 1);
    waiting(2, "E-3", "ZP-2", "L", "I", price("2.00"), 2);
    const auto log = database->dir() / "bitacora.log";
    if (row.fullDevice)
        std::filesystem::create_symlink("/dev/full", log);
    else
        std::filesystem::create_directory(log);

    const Run run = ctl("enviar");

    EXPECT_EQ(run.status, row.status) << run.out << run.err;
    EXPECT_THAT(lines(run.err), ElementsAreArray(row.errors));
    EXPECT_THAT(tables(), ElementsAreArray(row.tables));
    EXPECT_EQ(marketplace("//Store[@StoreID='100']/Publication/@PublicationID").size(),
              row.status == 0 ? 2u : 1u);
    if (!row.fullDevice) {
        EXPECT_TRUE(std::filesystem::is_empty(log));
    }
}

INSTANTIATE_TEST_SUITE_P(
    LogFaults, UnwritableLogSendTest,
    ::testing::Values(
        UnwritableLog{"aRefusalToRecordWhileTheLogIsAFullDevice",
                      true,
                      kRefusal,
                      3,
                      {"asistentectl: Error de acceso a la ruta o el archivo: bitacora.log"},
                      {"1|K", "2|P", "pend 2|I|0|0|"}},
        UnwritableLog{"aRefusalToRecordWhileAFolderTakesTheLogsName",
                      false,
                      kRefusal,
                      3,
                      {"asistentectl: Error de acceso a la ruta o el archivo: bitacora.log: "
                       "Is a directory"},
                      {"1|K", "2|P", "pend 2|I|0|0|"}},
        UnwritableLog{"nothingToRecordWhileTheLogIsAFullDevice", true, "", 0, {}, {"1|K", "2|K"}}),
    [](const ::testing::TestParamInfo<UnwritableLog> &info) { return info.param.name; });
