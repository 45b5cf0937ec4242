#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The layers of a source tree, bottom to top as the ASISTENTE_SOURCE_DIRS list of its
/// top-level CMakeLists.txt writes them, held against the includes of src/, app/ and db/.
class LayeringCheck
{
public:
    /// Reads the folder order of the tree at root; nothing else is read until problems().
    explicit LayeringCheck(std::filesystem::path root);

    /// Every include that breaks the order, as "file:line: folder includes folder (...) ..."
    /// with paths relative to the root, in file and line order: a header of a folder listed
    /// after the includer's own, or of one wizard's folder from another's. A source file in no
    /// listed folder is a problem too, and a tree whose list cannot be read gives one line
    /// saying so. Empty when every include points down.
    std::vector<std::string> problems() const;

private:
    void readFolderOrder();
    std::string folderOf(const std::filesystem::path &relative) const;
    int rank(const std::string &folder) const;
    std::filesystem::path resolve(const std::filesystem::path &includer, const std::string &target,
                                  bool quoted) const;
    void checkFile(const std::filesystem::path &relative, std::vector<std::string> &out) const;

    std::filesystem::path m_root;
    std::vector<std::string> m_folders;
    std::string m_listProblem;
};
