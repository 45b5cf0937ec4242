#pragma once

#include "SellerDatabaseSandbox.h"
#include "ShellTest.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "stores/Seller.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

/// The assistant in the sandbox: the real ERP and back-office libraries (ASISTENTE_ERP_LIBRARY,
/// ASISTENTE_BACKOFFICE_LIBRARY), the feria-sim whose fixture wrote its address to the file
/// named by ASISTENTE_TEST_URL_FILE, and the seller's database in a directory of its own. Each
/// test starts with no seller, no session and no SOAP client.
class AssistantSandbox : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        database = std::make_unique<SellerDatabaseSandbox>();
        resetAssistant();
        setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
        useFixtureMarketplace();
    }
    void TearDown() override
    {
        if (gSeller.exists())
            gSeller->closeSession();
        resetAssistant();
        database.reset();
        unsetenv("ASISTENTE_MARKETPLACE_URL");
        ShellTest::TearDown();
    }

    void useFixtureMarketplace()
    {
        const char *file = std::getenv("ASISTENTE_TEST_URL_FILE");
        ASSERT_NE(file, nullptr) << "ASISTENTE_TEST_URL_FILE is not set";
        std::string url;
        std::ifstream(file) >> url;
        ASSERT_FALSE(url.empty()) << "no feria-sim address in " << file;
        setenv("ASISTENTE_MARKETPLACE_URL", url.c_str(), 1);
    }

    std::unique_ptr<SellerDatabaseSandbox> database;

    /// Forgets the seller, its session and the SOAP clients, as a new run of the host would.
    static void resetAssistant()
    {
        gSeller.reset();
        gStoreClient.reset();
        gCatalogOperationsClient.reset();
        gCatalogInfoClient.reset();
        setErpLibrary(nullptr);
        setBackOfficeLibrary(nullptr);
    }
};
