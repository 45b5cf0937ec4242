#include "LayeringCheck.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// The shell at the bottom with its frame above it, two wizards, the window over them, the host.
constexpr const char *kFolderList = R"(cmake_minimum_required(VERSION 3.25)
# Bottom to top.
set(ASISTENTE_SOURCE_DIRS
    src/shell src/shell/frame # the frame sits above the shell
    src/wizards/one "src/wizards/two"
    src/shell/window app)
)";

/// A small source tree in a temporary folder, removed with the object.
class TinyTree
{
public:
    TinyTree()
    {
        std::string pattern = (fs::temp_directory_path() / "layering-XXXXXX").string();
        m_root = mkdtemp(pattern.data());
    }
    ~TinyTree()
    {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
    }
    TinyTree(const TinyTree &) = delete;
    TinyTree &operator=(const TinyTree &) = delete;

    void write(const fs::path &relative, const std::string &text)
    {
        fs::create_directories((m_root / relative).parent_path());
        std::ofstream(m_root / relative) << text;
    }
    /// The list above and one header in every folder of it, each including only itself.
    void writeLayers()
    {
        write("CMakeLists.txt", kFolderList);
        for (const char *header :
             {"src/shell/Log.h", "src/shell/frame/Frame.h", "src/wizards/one/One.h",
              "src/wizards/two/Two.h", "src/shell/window/Window.h"})
            write(header, "#pragma once\n");
        write("app/main.cpp", "#include \"shell/window/Window.h\"\n");
    }
    std::vector<std::string> problems() const { return LayeringCheck(m_root).problems(); }
    const fs::path &root() const { return m_root; }

private:
    fs::path m_root;
};

struct IncludeRow
{
    const char *name;
    const char *file;
    const char *include;
    const char *problem; // nullptr when the include is allowed
};

const IncludeRow kIncludeRows[] = {
    {"the frame uses the shell below it", "src/shell/frame/Frame.cpp", "#include \"shell/Log.h\"",
     nullptr},
    {"the shell reaches up into the frame", "src/shell/Log.cpp",
     "#include \"shell/frame/Frame.h\"",
     "src/shell/Log.cpp:3: src/shell includes src/shell/frame (\"shell/frame/Frame.h\"), which "
     "is listed after it in ASISTENTE_SOURCE_DIRS"},
    {"the shell reaches into the frame by a name relative to its own folder", "src/shell/Log.cpp",
     "#include \"frame/Frame.h\"",
     "src/shell/Log.cpp:3: src/shell includes src/shell/frame (\"frame/Frame.h\"), which is "
     "listed after it in ASISTENTE_SOURCE_DIRS"},
    {"a header reaches up with angle brackets", "src/shell/Log.h",
     "  #  include <wizards/one/One.h>",
     "src/shell/Log.h:3: src/shell includes src/wizards/one (\"wizards/one/One.h\"), which is "
     "listed after it in ASISTENTE_SOURCE_DIRS"},
    {"the window above the wizards uses them", "src/shell/window/Window.cpp",
     "#include \"wizards/two/Two.h\"", nullptr},
    {"a wizard reaches up into the window", "src/wizards/one/One.cpp",
     "#include \"shell/window/Window.h\"",
     "src/wizards/one/One.cpp:3: src/wizards/one includes src/shell/window "
     "(\"shell/window/Window.h\"), which is listed after it in ASISTENTE_SOURCE_DIRS"},
    {"a wizard uses a wizard listed before it", "src/wizards/two/Two.cpp",
     "#include \"wizards/one/One.h\"",
     "src/wizards/two/Two.cpp:3: src/wizards/two includes src/wizards/one "
     "(\"wizards/one/One.h\"); wizards share through the frame and the editors, never through "
     "each other"},
    {"a wizard uses a wizard listed after it, told once", "src/wizards/one/pages/Page.cpp",
     "#include \"wizards/two/Two.h\"",
     "src/wizards/one/pages/Page.cpp:3: src/wizards/one includes src/wizards/two "
     "(\"wizards/two/Two.h\"); wizards share through the frame and the editors, never through "
     "each other"},
    {"a wizard uses its own header and the frame", "src/wizards/one/One.cpp",
     "#include \"wizards/one/One.h\"\n#include \"shell/frame/Frame.h\"", nullptr},
    {"an include put out of use by a comment", "src/shell/Log.cpp",
     "// #include \"shell/frame/Frame.h\"", nullptr},
    {"system and missing headers belong to no layer", "src/shell/Log.cpp",
     "#include <QString>\n#include \"wizards/three/Gone.h\"\n#include <vector>", nullptr},
};

} // namespace

TEST(LayeringCheckTest, includesAreHeldAgainstTheFolderOrder)
{
    for (const IncludeRow &row : kIncludeRows) {
        SCOPED_TRACE(row.name);
        TinyTree tree;
        tree.writeLayers();
        tree.write(row.file, "// What this file does.\n\n" + std::string(row.include) + "\n");
        const std::vector<std::string> expected =
            row.problem ? std::vector<std::string>{row.problem} : std::vector<std::string>{};
        EXPECT_EQ(tree.problems(), expected);
    }
}

TEST(LayeringCheckTest, everyBrokenIncludeIsListedInFileAndLineOrder)
{
    TinyTree tree;
    tree.writeLayers();
    tree.write("src/wizards/two/Two.cpp",
               "#include \"wizards/two/Two.h\"\n#include \"wizards/one/One.h\"\n");
    tree.write("src/shell/Log.cpp", "#include \"shell/Log.h\"\n\n\n#include \"shell/window/"
                                    "Window.h\"\n#include \"shell/frame/Frame.h\"\n");
    EXPECT_EQ(tree.problems(),
              (std::vector<std::string>{
                  "src/shell/Log.cpp:4: src/shell includes src/shell/window "
                  "(\"shell/window/Window.h\"), which is listed after it in ASISTENTE_SOURCE_DIRS",
                  "src/shell/Log.cpp:5: src/shell includes src/shell/frame "
                  "(\"shell/frame/Frame.h\"), which is listed after it in ASISTENTE_SOURCE_DIRS",
                  "src/wizards/two/Two.cpp:2: src/wizards/two includes src/wizards/one "
                  "(\"wizards/one/One.h\"); wizards share through the frame and the editors, "
                  "never through each other"}));
}

TEST(LayeringCheckTest, theOrderIsTheListsOwn)
{
    // The same tree with the frame moved below the shell: the shell's include of it is now fine
    // and the frame's include of the shell is not.
    TinyTree tree;
    tree.write("CMakeLists.txt", "SET( ASISTENTE_SOURCE_DIRS src/shell/frame src/shell/ )\n");
    tree.write("src/shell/Log.h", "#pragma once\n");
    tree.write("src/shell/Log.cpp", "#include \"shell/frame/Frame.h\"\n");
    tree.write("src/shell/frame/Frame.h", "#pragma once\n");
    tree.write("src/shell/frame/Frame.cpp", "#include \"shell/Log.h\"\n");
    EXPECT_EQ(tree.problems(),
              std::vector<std::string>{"src/shell/frame/Frame.cpp:1: src/shell/frame includes "
                                       "src/shell (\"shell/Log.h\"), which is listed after it in "
                                       "ASISTENTE_SOURCE_DIRS"});
}

TEST(LayeringCheckTest, aTreeThatCannotBeCheckedFails)
{
    struct Row
    {
        const char *name;
        const char *cmakeLists; // nullptr: no CMakeLists.txt at all
        const char *problem;
    };
    const Row rows[] = {
        {"no top-level CMakeLists.txt", nullptr,
         "CMakeLists.txt: cannot be read, so neither can ASISTENTE_SOURCE_DIRS"},
        {"a CMakeLists.txt without the list", "project(x)\n# set(ASISTENTE_SOURCE_DIRS src)\n",
         "CMakeLists.txt: no set(ASISTENTE_SOURCE_DIRS ...) list"},
        {"a list never closed", "set(ASISTENTE_SOURCE_DIRS src/shell\n",
         "CMakeLists.txt: the ASISTENTE_SOURCE_DIRS list cannot be read"},
        {"a source file outside every listed folder",
         "set(ASISTENTE_SOURCE_DIRS src/shell src/wizards/one)\n",
         "src/tools/Tool.h: in no folder of ASISTENTE_SOURCE_DIRS"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        TinyTree tree;
        tree.write("src/tools/Tool.h", "#pragma once\n");
        if (row.cmakeLists)
            tree.write("CMakeLists.txt", row.cmakeLists);
        EXPECT_EQ(tree.problems(), std::vector<std::string>{row.problem});
    }
}

TEST(LayeringCheckTest, theProgramFailsTheBuildOnlyWhenAnIncludePointsUp)
{
    TinyTree tree;
    tree.writeLayers();
    const auto run = [&tree](std::string &output) {
        const std::string command =
            std::string(LAYERING_CHECK_PROGRAM) + " '" + tree.root().string() + "'";
        FILE *pipe = popen(command.c_str(), "r");
        std::array<char, 256> chunk{};
        for (std::size_t got; (got = fread(chunk.data(), 1, chunk.size(), pipe)) > 0;)
            output.append(chunk.data(), got);
        return WEXITSTATUS(pclose(pipe));
    };
    std::string clean;
    EXPECT_EQ(run(clean), 0);
    EXPECT_EQ(clean, "");

    tree.write("src/wizards/two/Two.cpp", "#include \"wizards/one/One.h\"\n");
    std::string broken;
    EXPECT_EQ(run(broken), 1);
    EXPECT_NE(broken.find("src/wizards/two/Two.cpp:1: src/wizards/two includes src/wizards/one"),
              std::string::npos)
        << broken;
    EXPECT_NE(broken.find("1 problem(s)"), std::string::npos) << broken;
}
