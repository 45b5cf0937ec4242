#include "AssistantSandbox.h"

#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/soap/SoapClient.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "stores/Seller.h"

namespace {

/// The gateways against the real simulator and the real connector libraries. The same tests run
/// against the demo marketplace and, with CUT_REPLY, against one whose limits reply is longer
/// than any caller's buffer.
class GatewaysSandboxTest : public AssistantSandbox
{
protected:
    static XmlDocument parsed(const std::string &reply)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(reply)) << reply.substr(0, 300);
        return document;
    }
};

} // namespace

#ifdef CUT_REPLY
TEST_F(GatewaysSandboxTest, aReplyCutAtTheBufferFailsAsMalformed)
{
    EXPECT_FALSE(QDXGetOperationConfiguration());
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: -10502 (QDX:QDXGetOperationConfiguration): El XML "
                                 "retornado por el QDX en EjecutarOperacion."
                                 "QDX_Obtener_Informacion_Configuracion está mal construido: "),
              std::string::npos);
    // An application error: the generic text, and the assistant goes on.
    EXPECT_TRUE(gAppRunning);
}
#else
TEST_F(GatewaysSandboxTest, everyCatalogueOperationAnswersThroughTheBoundClients)
{
    ASSERT_TRUE(CommerceServerInit());

    struct Call
    {
        SoapClient *client;
        const char *operation;
        std::vector<SoapArgument> arguments;
        const char *dataNode;
    };
    const Call calls[] = {
        {gStoreClient.get(), "GetSellerInformation", {"V1042"}, "descendant::Store"},
        {gCatalogInfoClient.get(), "GetCategoryContent",
         {"", std::int16_t{1}, std::int16_t{50}}, "descendant::Category"},
        {gCatalogInfoClient.get(), "GetProductDefinition", {"ZC-110"}, "descendant::Property"},
        {gCatalogInfoClient.get(), "GetProductInformation", {"ZP-00001", "100"},
         "descendant::Field"},
        {gStoreClient.get(), "RequestNewCategory", {"100", "ZC-100", "Drones"}, "RESULT"},
        {gStoreClient.get(), "RequestNewProduct",
         {"100", "ZC-110", "<RequestNewProduct><Product Definition='pdTelevisor'/>"
                           "</RequestNewProduct>"},
         "RequestID"},
        {gStoreClient.get(), "RequestNewProductDef",
         {"100", "ZC-110", "<RequestNewProductDef><Name>Proyectores</Name></RequestNewProductDef>"},
         "RequestID"},
    };
    for (const Call &call : calls) {
        SCOPED_TRACE(call.operation);
        XmlDocument reply = parsed(call.client->call(call.operation, call.arguments));
        EXPECT_EQ(reply.documentElement().nodeName(), call.operation);
        EXPECT_FALSE(Commerce_IsError(reply)) << Commerce_ErrorDescription(reply);
        EXPECT_GT(reply.documentElement().selectNodes(call.dataNode).length(), 0);
    }
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(GatewaysSandboxTest, anUnreachableMarketplaceIsAPlatformErrorAndFatal)
{
    ::setenv("ASISTENTE_MARKETPLACE_URL", "http://127.0.0.1:1", 1);
    EXPECT_FALSE(CommerceServerInit());
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: 440 (CommerceServer::CommerceServerInit)"),
              std::string::npos)
        << logLines()[0];
    EXPECT_EQ(ui->boxes()[0].title, "Error Fatal");
    EXPECT_FALSE(gAppRunning);
}

TEST_F(GatewaysSandboxTest, theBackOfficeGivesTheBatchLimitsThroughTheSellersSession)
{
    ASSERT_TRUE(QDXGetOperationConfiguration());
    EXPECT_TRUE(gSeller->isSessionStarted());
    EXPECT_EQ(gSeller->id(), "V1042");
    EXPECT_EQ(gOperationLimits.item("300").item("9"), 5);
}
#endif
