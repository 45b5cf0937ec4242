#pragma once

#include <filesystem>
#include <string>

/// Points the program at the sandbox for one test: the marketplace simulator whose address a
/// feria-sim fixture wrote to `urlFile`, the two connector libraries of this build, and an empty
/// seller database "AsistenteDemo" in `dataDir`. Also drops any seller, clients and library
/// replacements left by an earlier test.
void useSandbox(const std::string &urlFile, const std::filesystem::path &dataDir);

/// The marketplace's address as the fixture wrote it.
std::string fixtureUrl(const std::string &urlFile);
