#include "AssistantProgram.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kLogRefused = "Error: 75: Error de acceso a la ruta o el archivo: bitacora.log";

// A start-up fault, with a log that cannot be written in a way that holds for root too.
struct StartFault
{
    const char *name;
    const char *variable;
    std::string value;
    bool logIsFullDevice; // else the log's name is taken by a folder
};

void PrintTo(const StartFault &fault, std::ostream *out)
{
    *out << fault.name;
}

std::string library(const char *name)
{
    return std::string(std::getenv("ASISTENTE_LIBRARY_DIR")) + "/" + name;
}

class UnwritableLogAtStartTest : public ::testing::TestWithParam<StartFault>
{
};

} // namespace

TEST_P(UnwritableLogAtStartTest, theErrorIsShownAndToldAndTheProgramEndsWithAFailure)
{
    const StartFault &fault = GetParam();
    AssistantProgram program;
    program.set(fault.variable, fault.value);
    const auto log = program.workDir / "bitacora.log";
    if (fault.logIsFullDevice)
        std::filesystem::create_symlink("/dev/full", log);
    else
        std::filesystem::create_directory(log);

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 1);
    ASSERT_THAT(run.boxes, ElementsAre(StartsWith("[Error Fatal] " + kLogRefused),
                                       "[] La aplicación será cerrada"));
    // Standard error tells what the box told.
    EXPECT_THAT(run.standardError, HasSubstr(run.boxes[0].substr(sizeof "[Error Fatal]")));
    EXPECT_THAT(run.standardError, Not(HasSubstr("terminate called")));
    EXPECT_THAT(program.workDirEntries(), ElementsAre("bitacora.log"));
    if (!fault.logIsFullDevice) {
        EXPECT_TRUE(std::filesystem::is_empty(log));
    }
}

INSTANTIATE_TEST_SUITE_P(
    StartFaults, UnwritableLogAtStartTest,
    testing::Values(StartFault{"theErpLibraryIsNotWhereItIsSaid", "ASISTENTE_ERP_LIBRARY",
                               "/no/existe/libzrvndll.so", false},
                    StartFault{"theBackOfficeLibraryLacksItsFunctions",
                               "ASISTENTE_BACKOFFICE_LIBRARY", library("libzrvndll.so"), false},
                    // Nothing listens on the discard port of the loopback address.
                    StartFault{"theMarketplaceDoesNotAnswer", "ASISTENTE_MARKETPLACE_URL",
                               "http://127.0.0.1:9", false},
                    StartFault{"theErpLibraryIsMissingAndTheLogIsAFullDevice",
                               "ASISTENTE_ERP_LIBRARY", "/no/existe/libzrvndll.so", true}),
    [](const testing::TestParamInfo<StartFault> &info) { return info.param.name; });

TEST(HostProgramTest, aSellerWhoLeavesTheWindowEndsTheProgramWithSuccess)
{
    AssistantProgram program;

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 0) << run.standardError;
    EXPECT_THAT(run.boxes, ElementsAre());
    EXPECT_THAT(run.standardError, Not(HasSubstr("LeakSanitizer")));
}

TEST(HostProgramTest, aFailedStartEndsTheProgramWithAFailureAndAllIsInTheLog)
{
    AssistantProgram program;
    program.set("ASISTENTE_ERP_LIBRARY", "/no/existe/libzrvndll.so");

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.boxes.back(), HasSubstr("Ocurrió un error grave de conexión"));
    std::ifstream log(program.workDir / "bitacora.log");
    std::string line;
    ASSERT_TRUE(std::getline(log, line));
    EXPECT_THAT(line, HasSubstr("/no/existe/libzrvndll.so"));
}

// The demo of the sanitized build shows the window on a virtual screen, whose desktop libraries
// keep memory until the process ends: that must not turn a good exit into a failure.
TEST(HostProgramTest, theDemoOfTheTestBuildEndsWithTheProgramsOwnStatus)
{
    AssistantProgram program;
    program.unset("DISPLAY");
    program.unset("WAYLAND_DISPLAY");
    program.unset("LSAN_OPTIONS");
    program.unset("QT_QPA_PLATFORM");
    program.set("ASISTENTE_DEMO_SANDBOX", (program.workDir / "sandbox").string());
    program.set("ASISTENTE_DEMO_PORT", "0");
    program.set("ASISTENTE_SCRIPTED_UI", "F2");

    const ProgramRun run = program.run({std::getenv("ASISTENTE_BUILD_DIR")},
                                       QString::fromLocal8Bit(std::getenv("ASISTENTE_DEMO")));

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 0) << run.standardError;
    EXPECT_THAT(run.standardError, Not(HasSubstr("LeakSanitizer")));
}

// The suppressions are for the system's libraries only: a leak in a program of ours still fails.
TEST(HostProgramTest, aLeakInOurOwnCodeStillFailsTheRun)
{
    const char *probe = std::getenv("ASISTENTE_LEAK_PROBE");
    if (!probe || !*probe)
        GTEST_SKIP() << "not a sanitized build";
    AssistantProgram program;

    const ProgramRun run = program.run({}, QString::fromLocal8Bit(probe));

    EXPECT_NE(run.status, 0);
    EXPECT_THAT(run.standardError, HasSubstr("LeakSanitizer: detected memory leaks"));
}
