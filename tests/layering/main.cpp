#include "LayeringCheck.h"

#include <iostream>

// layering-check <source dir>: lists every include of the program that points up the folder
// order of the top-level CMakeLists.txt, and fails when there is one.
int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: layering-check <source dir>\n";
        return 2;
    }
    const std::vector<std::string> problems = LayeringCheck(argv[1]).problems();
    for (const std::string &problem : problems)
        std::cout << problem << '\n';
    if (problems.empty())
        return 0;
    std::cout << problems.size()
              << " problem(s): every folder may only include the ones listed before it in "
                 "ASISTENTE_SOURCE_DIRS (CMakeLists.txt), and wizards never each other\n";
    return 1;
}
