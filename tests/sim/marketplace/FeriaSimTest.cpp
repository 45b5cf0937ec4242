#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"

#include <gtest/gtest.h>
#include <regex>

TEST(FeriaSimTest, printsWhereItListensAndStopsCleanlyOnSigterm)
{
    auto sim = FeriaSimProcess::withData(smallMarketplace());
    ASSERT_TRUE(sim->error().empty()) << sim->error();
    EXPECT_TRUE(std::regex_match(sim->url(), std::regex(R"(http://127\.0\.0\.1:[0-9]+)")))
        << sim->url();
    // Served before it is stopped: a SIGTERM that comes before its loop starts is lost.
    EXPECT_NE(
        SoapTestClient(sim->url()).get("/zvtservices/zvtsorvek.wsdl").find("CatalogInfoSoapPort"),
        std::string::npos);
    EXPECT_EQ(sim->stop(), 0);
}

TEST(FeriaSimTest, refusesToStartWithoutItsDataFile)
{
    FeriaSimProcess sim("/nonexistent/feria-sim-data");
    EXPECT_TRUE(sim.url().empty());
    EXPECT_NE(sim.stop(), 0);
}
