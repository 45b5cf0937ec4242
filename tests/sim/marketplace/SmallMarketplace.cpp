#include "SmallMarketplace.h"

#include <fstream>
#include <sstream>

namespace {

void replace(std::string &text, const std::string &from, const std::string &to)
{
    text.replace(text.find(from), from.size(), to);
}

} // namespace

std::string smallMarketplace(const std::string &faults, int batchLimit)
{
    std::ostringstream read;
    read << std::ifstream(SMALL_MARKETPLACE).rdbuf();
    std::string text = read.str();
    replace(text, "<Faults/>", "<Faults>" + faults + "</Faults>");
    replace(text, "<MaxOperations>5<", "<MaxOperations>" + std::to_string(batchLimit) + "<");
    return text;
}
