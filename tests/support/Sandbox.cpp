#include "Sandbox.h"

#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "platform/db/EmbeddedDatabase.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

std::string fixtureUrl(const std::string &urlFile)
{
    std::ifstream file(urlFile);
    std::string url;
    std::getline(file, url);
    EXPECT_FALSE(url.empty()) << "the feria-sim fixture wrote no address to " << urlFile;
    return url;
}

void useSandbox(const std::string &urlFile, const std::filesystem::path &dataDir)
{
    ::setenv("ASISTENTE_MARKETPLACE_URL", fixtureUrl(urlFile).c_str(), 1);
    ::setenv("ASISTENTE_ERP_LIBRARY", ASISTENTE_TEST_LIB_DIR "/libzrvndll.so", 1);
    ::setenv("ASISTENTE_BACKOFFICE_LIBRARY", ASISTENTE_TEST_LIB_DIR "/libqdx.so", 1);
    ::setenv("ASISTENTE_DATA_DIR", dataDir.c_str(), 1);
    ::unsetenv("ASISTENTE_ERP_SIM_DATA");
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
    createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
}
