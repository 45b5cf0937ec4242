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

TEST(FeriaSimTest, withAStateFileWhatWasReceivedOutlivesARestart)
{
    auto sim = FeriaSimProcess::withData(smallMarketplace(), {"--state", "{dir}/estado.xml"});
    ASSERT_FALSE(sim->url().empty()) << sim->error();
    EXPECT_EQ(SoapTestClient(sim->url())
                  .call("RequestNewCategory",
                        {{"StoreID", "100"}, {"CategoryID", "ZC-1"}, {"CategoryName", "Jardín"}})
                  .code(),
              0);
    sim->restart();
    ASSERT_FALSE(sim->url().empty()) << sim->error();
    pugi::xml_document state;
    ASSERT_TRUE(state.load_string(SoapTestClient(sim->url()).get("/sim/state").c_str()));
    EXPECT_STREQ(
        state.select_node("//Request[@operation='RequestNewCategory']").node().text().get(),
        "Jardín");
}
