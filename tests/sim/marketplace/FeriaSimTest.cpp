#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <map>
#include <regex>

namespace {

std::string attr(pugi::xml_node node, const char *name)
{
    return node.attribute(name).value();
}

} // namespace

TEST(FeriaSimTest, printsWhereItListensAndStopsCleanlyOnSigterm)
{
    FeriaSimProcess sim(FERIA_SIM_DEMO_DATA);
    ASSERT_TRUE(sim.error().empty()) << sim.error();
    EXPECT_TRUE(std::regex_match(sim.url(), std::regex(R"(http://127\.0\.0\.1:[0-9]+)")))
        << sim.url();
    EXPECT_FALSE(SoapTestClient(sim.url()).get("/zvtservices/zvtsorvek.wsdl").empty());
    EXPECT_EQ(sim.stop(), 0);
}

TEST(FeriaSimTest, refusesToStartWithoutItsDataFile)
{
    FeriaSimProcess sim("/nonexistent/feria-sim-data");
    EXPECT_TRUE(sim.url().empty());
    EXPECT_NE(sim.stop(), 0);
}

TEST(FeriaSimTest, wsdlDescribesTheServiceItsThreePortsAndTheSevenOperationsInCallOrder)
{
    auto sim = FeriaSimProcess::withData(smallMarketplace());
    ASSERT_FALSE(sim->url().empty()) << sim->error();
    pugi::xml_document wsdl;
    ASSERT_TRUE(
        wsdl.load_string(SoapTestClient(sim->url()).get("/zvtservices/zvtsorvek.wsdl").c_str()));
    pugi::xml_node definitions = wsdl.child("definitions");
    pugi::xml_node service = definitions.child("service");
    EXPECT_EQ(attr(service, "name"), "zvtsorvek");

    std::map<std::string, std::string> addresses;
    for (pugi::xml_node port : service.children("port")) {
        addresses[attr(port, "name")] = attr(port.child("soap:address"), "location");
    }
    EXPECT_EQ(
        addresses,
        (std::map<std::string, std::string>{
            {"StoreSoapPort", sim->url() + "/zvtservices/StoreSoapPort"},
            {"CatalogOperationsSoapPort", sim->url() + "/zvtservices/CatalogOperationsSoapPort"},
            {"CatalogInfoSoapPort", sim->url() + "/zvtservices/CatalogInfoSoapPort"},
        }));

    struct Expected
    {
        const char *operation;
        const char *port;
        std::vector<std::string> parts;
    };
    const std::vector<Expected> table{
        {"GetSellerInformation", "StoreSoapPort", {"SellerID:xsd:string"}},
        {"RequestNewCategory",
         "StoreSoapPort",
         {"StoreID:xsd:string", "CategoryID:xsd:string", "CategoryName:xsd:string"}},
        {"RequestNewProduct",
         "StoreSoapPort",
         {"StoreID:xsd:string", "CategoryID:xsd:string", "RequestXML:xsd:string"}},
        {"RequestNewProductDef",
         "StoreSoapPort",
         {"StoreID:xsd:string", "CategoryID:xsd:string", "RequestXML:xsd:string"}},
        {"GetCategoryContent",
         "CatalogInfoSoapPort",
         {"CategoryID:xsd:string", "PageNumber:xsd:short", "PageSize:xsd:short"}},
        {"GetProductDefinition", "CatalogInfoSoapPort", {"CategoryID:xsd:string"}},
        {"GetProductInformation",
         "CatalogInfoSoapPort",
         {"ProductID:xsd:string", "StoreID:xsd:string"}},
    };
    for (const Expected &expected : table) {
        SCOPED_TRACE(expected.operation);
        const std::string input = std::string(expected.operation) + "Request";
        std::vector<std::string> parts;
        for (pugi::xml_node part :
             definitions.find_child_by_attribute("message", "name", input.c_str())
                 .children("part")) {
            parts.push_back(attr(part, "name") + ":" + attr(part, "type"));
        }
        EXPECT_EQ(parts, expected.parts);

        const std::string bindingName = std::string(expected.port) + "Binding";
        pugi::xml_node binding =
            definitions.find_child_by_attribute("binding", "name", bindingName.c_str());
        EXPECT_EQ(attr(binding.child("soap:binding"), "style"), "rpc");
        pugi::xml_node operation =
            binding.find_child_by_attribute("operation", "name", expected.operation);
        ASSERT_TRUE(operation);
        EXPECT_FALSE(attr(operation.child("soap:operation"), "soapAction").empty());
        EXPECT_EQ(attr(operation.child("input").child("soap:body"), "use"), "literal");
        EXPECT_EQ(attr(operation.child("output").child("soap:body"), "use"), "literal");
    }
}

TEST(FeriaSimTest, portAddressesFollowTheHostTheClientAskedFor)
{
    auto sim = FeriaSimProcess::withData(smallMarketplace());
    ASSERT_FALSE(sim->url().empty()) << sim->error();
    httplib::Client client(sim->url());
    auto reply = client.Get("/zvtservices/zvtsorvek.wsdl", {{"Host", "feria.example:8080"}});
    ASSERT_TRUE(reply);
    EXPECT_NE(reply->body.find("http://feria.example:8080/zvtservices/StoreSoapPort"),
              std::string::npos);
}

TEST(FeriaSimTest, withAStateFileWhatWasReceivedOutlivesARestart)
{
    auto sim = FeriaSimProcess::withData(smallMarketplace(), {"--state", "{dir}/estado.xml"});
    ASSERT_FALSE(sim->url().empty()) << sim->error();
    EXPECT_EQ(
        SoapTestClient(sim->url())
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
