#include "SandboxTest.h"

#include "gateways/CommerceServer.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "stores/Seller.h"

#include <cstdlib>
#include <fstream>
#include <httplib.h>

void SandboxTest::SetUp()
{
    CatalogueTest::SetUp();
    std::ifstream(FERIA_URL_FILE) >> marketplaceUrl;
    ASSERT_FALSE(marketplaceUrl.empty()) << "feria-sim is not running";
    setenv("ASISTENTE_MARKETPLACE_URL", marketplaceUrl.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
    gSeller.reset();
    ASSERT_TRUE(CommerceServerInit());
}

void SandboxTest::TearDown()
{
    if (gSeller.exists())
        gSeller->closeSession();
    gSeller.reset();
    gStoreClient.reset();
    gCatalogOperationsClient.reset();
    gCatalogInfoClient.reset();
    for (const char *variable :
         {"ASISTENTE_MARKETPLACE_URL", "ASISTENTE_ERP_LIBRARY", "ASISTENTE_BACKOFFICE_LIBRARY"})
        unsetenv(variable);
    CatalogueTest::TearDown();
}

std::string SandboxTest::marketplaceState() const
{
    httplib::Client client(marketplaceUrl);
    const auto reply = client.Get("/sim/state");
    return reply ? reply->body : std::string();
}
