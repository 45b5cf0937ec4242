#include "AssistantProgram.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

// The seller's database made by the program's own tool in `folder`, which others may read.
void createSellerDatabase(const fs::path &folder)
{
    fs::create_directory(folder);
    const std::string tool = std::string(std::getenv("ASISTENTE_BUILD_DIR")) + "/bin/asistente-db";
    const std::string command =
        "ASISTENTE_DATA_DIR='" + folder.string() + "' '" + tool + "' init AsistenteDemo >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
}

std::string contentOf(const fs::path &file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

// F2 lists the deposits, which the ERP reads from the seller's database.
TEST(DataFolderTest, aDataFolderThatCannotBeWrittenStillListsTheMinistores)
{
    AssistantProgram program;
    const fs::path data = program.workDir / "datos";
    createSellerDatabase(data);
    const std::string before = contentOf(data / "AsistenteDemo.sqlite3");
    fs::permissions(data, fs::perms::owner_write, fs::perm_options::remove); // r-x for all
    fs::permissions(program.workDir, fs::perms::all);
    program.set("ASISTENTE_DATA_DIR", data.string());
    program.set("ASISTENTE_SCRIPTED_UI", "F2");
    program.runUnprivileged();

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 0) << run.standardError;
    EXPECT_THAT(run.boxes, ElementsAre());
    EXPECT_FALSE(fs::exists(program.workDir / "bitacora.log"));
    EXPECT_EQ(contentOf(data / "AsistenteDemo.sqlite3"), before);
}

// Once the window is open, an error that cannot be logged reads as it does at start-up.
TEST(DataFolderTest, anUnwritableLogWithTheWindowOpenShowsTheSameBoxAndEndsWithAFailure)
{
    AssistantProgram program;
    // A seller's database that is not one: the ERP cannot list the deposits.
    const fs::path data = program.workDir / "datos";
    fs::create_directory(data);
    std::ofstream(data / "AsistenteDemo.sqlite3") << "esto no es una base de datos";
    program.set("ASISTENTE_DATA_DIR", data.string());
    fs::create_directory(program.workDir / "bitacora.log");
    program.set("ASISTENTE_SCRIPTED_UI", "F2");

    const ProgramRun run = program.run();

    ASSERT_TRUE(run.exited) << run.standardError;
    EXPECT_EQ(run.status, 1);
    ASSERT_THAT(run.boxes,
                ElementsAre(StartsWith("[Error Fatal] Error: 75: Error de acceso a la ruta o el "
                                       "archivo: bitacora.log"),
                            "[] La aplicación será cerrada"));
    EXPECT_THAT(run.standardError, HasSubstr(run.boxes[0].substr(sizeof "[Error Fatal]")));
    EXPECT_TRUE(fs::is_empty(program.workDir / "bitacora.log"));
}
