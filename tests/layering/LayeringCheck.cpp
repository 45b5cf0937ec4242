#include "LayeringCheck.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <regex>
#include <sstream>
#include <string_view>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kListName = "ASISTENTE_SOURCE_DIRS";
// The checked parts of the tree; sim/ and tests/ may reach into the program where they must.
constexpr std::string_view kCheckedDirs[] = {"src", "app", "db"};
constexpr std::string_view kSourceExtensions[] = {".h", ".hpp", ".cpp", ".cc", ".cxx"};
// Each folder under this one is a wizard of its own.
constexpr std::string_view kWizardsDir = "src/wizards/";

struct Include
{
    int line;
    std::string target;
    bool quoted;
};

std::optional<Include> includeOn(std::string_view text, int line)
{
    std::size_t at = text.find_first_not_of(" \t");
    if (at == text.npos || text[at] != '#')
        return std::nullopt;
    at = text.find_first_not_of(" \t", at + 1);
    if (at == text.npos || text.substr(at, 7) != "include")
        return std::nullopt;
    at = text.find_first_not_of(" \t", at + 7);
    if (at == text.npos || (text[at] != '"' && text[at] != '<'))
        return std::nullopt;
    const char close = text[at] == '"' ? '"' : '>';
    const std::size_t end = text.find(close, at + 1);
    if (end == text.npos)
        return std::nullopt;
    return Include{line, std::string(text.substr(at + 1, end - at - 1)), close == '"'};
}

// CMake comments run from '#' to the end of the line, unless the '#' is quoted.
std::string withoutComments(std::istream &in)
{
    std::string kept, line;
    while (std::getline(in, line)) {
        bool quoted = false;
        for (char c : line) {
            if (c == '"')
                quoted = !quoted;
            else if (c == '#' && !quoted)
                break;
            kept += c;
        }
        kept += '\n';
    }
    return kept;
}

bool isSource(const fs::path &file)
{
    const std::string extension = file.extension().string();
    return std::find(std::begin(kSourceExtensions), std::end(kSourceExtensions), extension) !=
           std::end(kSourceExtensions);
}

// "src/wizards/X" for a folder of wizard X, empty for any other folder.
std::string wizardOf(const std::string &folder)
{
    if (folder.compare(0, kWizardsDir.size(), kWizardsDir) != 0)
        return {};
    return folder.substr(0, folder.find('/', kWizardsDir.size()));
}

} // namespace

LayeringCheck::LayeringCheck(fs::path root) : m_root(std::move(root))
{
    readFolderOrder();
}

void LayeringCheck::readFolderOrder()
{
    std::ifstream file(m_root / "CMakeLists.txt");
    if (!file) {
        m_listProblem = "CMakeLists.txt: cannot be read, so neither can " + std::string(kListName);
        return;
    }
    const std::string text = withoutComments(file);
    static const std::regex start(R"(\bset\s*\(\s*ASISTENTE_SOURCE_DIRS\s)", std::regex::icase);
    std::smatch found;
    if (!std::regex_search(text, found, start)) {
        m_listProblem = "CMakeLists.txt: no set(" + std::string(kListName) + " ...) list";
        return;
    }
    const std::size_t from = found.position(0) + found.length(0);
    const std::size_t end = text.find(')', from);
    std::istringstream items(text.substr(from, end == text.npos ? text.npos : end - from));
    for (std::string item; items >> item;) {
        std::erase(item, '"');
        while (item.size() > 1 && item.back() == '/')
            item.pop_back();
        if (!item.empty())
            m_folders.push_back(item);
    }
    if (end == text.npos || m_folders.empty())
        m_listProblem = "CMakeLists.txt: the " + std::string(kListName) + " list cannot be read";
}

std::string LayeringCheck::folderOf(const fs::path &relative) const
{
    const std::string path = relative.generic_string();
    std::string deepest;
    for (const std::string &folder : m_folders) {
        const bool inside = path.size() > folder.size() && path[folder.size()] == '/' &&
                            path.compare(0, folder.size(), folder) == 0;
        if (inside && folder.size() > deepest.size())
            deepest = folder;
    }
    return deepest;
}

int LayeringCheck::rank(const std::string &folder) const
{
    return static_cast<int>(std::find(m_folders.begin(), m_folders.end(), folder) -
                            m_folders.begin());
}

fs::path LayeringCheck::resolve(const fs::path &includer, const std::string &target,
                                bool quoted) const
{
    // The compiler's order: a quoted name is first looked for beside the includer, then on
    // the include path, which is src/ for the program (and the root for a few sim targets).
    std::vector<fs::path> candidates;
    if (quoted)
        candidates.push_back(m_root / includer.parent_path() / target);
    candidates.push_back(m_root / "src" / target);
    candidates.push_back(m_root / target);
    for (const fs::path &candidate : candidates) {
        std::error_code error;
        if (!fs::is_regular_file(candidate, error))
            continue;
        const fs::path relative = candidate.lexically_normal().lexically_relative(m_root);
        if (relative.empty() || *relative.begin() == "..")
            return {};
        return relative;
    }
    return {};
}

void LayeringCheck::checkFile(const fs::path &relative, std::vector<std::string> &out) const
{
    const std::string name = relative.generic_string();
    const std::string folder = folderOf(relative);
    if (folder.empty()) {
        out.push_back(name + ": in no folder of " + std::string(kListName));
        return;
    }
    std::ifstream file(m_root / relative);
    if (!file) {
        out.push_back(name + ": cannot be read");
        return;
    }
    int number = 0;
    for (std::string text; std::getline(file, text);) {
        const std::optional<Include> include = includeOn(text, ++number);
        if (!include)
            continue;
        const fs::path header = resolve(relative, include->target, include->quoted);
        const std::string used = header.empty() ? std::string() : folderOf(header);
        if (used.empty() || used == folder)
            continue;
        const std::string where = name + ":" + std::to_string(include->line) + ": " + folder +
                                  " includes " + used + " (\"" + include->target + "\")";
        const std::string wizard = wizardOf(folder), usedWizard = wizardOf(used);
        if (!wizard.empty() && !usedWizard.empty() && usedWizard != wizard)
            out.push_back(where + "; wizards share through the frame and the editors, never "
                                  "through each other");
        else if (rank(used) > rank(folder))
            out.push_back(where + ", which is listed after it in " + std::string(kListName));
    }
}

std::vector<std::string> LayeringCheck::problems() const
{
    if (!m_listProblem.empty())
        return {m_listProblem};
    std::vector<fs::path> files;
    for (std::string_view dir : kCheckedDirs) {
        std::error_code error;
        for (fs::recursive_directory_iterator it(m_root / dir, error), end; !error && it != end;
             it.increment(error)) {
            if (it->is_regular_file(error) && isSource(it->path()))
                files.push_back(it->path().lexically_relative(m_root));
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> out;
    for (const fs::path &file : files)
        checkFile(file, out);
    return out;
}
