#include "FakeConnectors.h"
#include "ShellTest.h"

#include "gateways/BackOfficeSession.h"
#include "gateways/QDX.h"
#include "shell/AppState.h"

namespace {

/// Stands for the seller: counts the closes and opens the recovery asks for.
class CountingSession : public BackOfficeSession
{
public:
    std::int32_t sessionId() override { return ++opens + 500; }
    void closeSession() override { ++closes; }
    int opens = 0;
    int closes = 0;
};

class QdxTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        library = std::make_shared<FakeBackOffice>();
        setBackOfficeLibrary(library);
        setBackOfficeSession([this]() -> BackOfficeSession & { return session; });
    }
    void TearDown() override
    {
        setBackOfficeLibrary(nullptr);
        setBackOfficeSession({});
        ShellTest::TearDown();
    }
    std::int32_t run(std::string &reply)
    {
        return EjecutarOperacion(13, 7, "<GetStoreInfo/>", reply, kQdxReplySize);
    }

    std::shared_ptr<FakeBackOffice> library;
    CountingSession session;
};

} // namespace

TEST_F(QdxTest, aLostSessionIsReopenedOnceAndTheSecondCodeCounts)
{
    library->queue(-2005);
    library->queue(-2005);
    std::string reply;
    EXPECT_EQ(run(reply), -2005);
    ASSERT_EQ(library->calls.size(), 2u);
    EXPECT_EQ(session.closes, 1);
    EXPECT_EQ(session.opens, 1);
    // The first call used the caller's id; the retry the new one. The caller's copy stays.
    EXPECT_EQ(library->calls[0].sessionId, 7);
    EXPECT_EQ(library->calls[1].sessionId, 501);
    EXPECT_EQ(library->calls[1].request, "<GetStoreInfo/>");
}

TEST_F(QdxTest, theRetryMayRecover)
{
    library->queue(-3999);
    library->queue(0, "<Stores/>");
    std::string reply;
    EXPECT_EQ(run(reply), 0);
    EXPECT_EQ(reply, "<Stores/>");
}

TEST_F(QdxTest, codesOutsideTheConnectorBandAreNotRetried)
{
    for (const std::int32_t code : {-10100, -1999, -4000, 7}) {
        SCOPED_TRACE(code);
        library->calls.clear();
        library->queue(code, "<R/>");
        std::string reply;
        EXPECT_EQ(run(reply), code);
        EXPECT_EQ(library->calls.size(), 1u);
    }
    EXPECT_EQ(session.closes, 0);
}

TEST_F(QdxTest, aMissingLibraryGivesZeroAndLeavesTheReplyAsItWas)
{
    setBackOfficeLibrary(nullptr);
    ::setenv("ASISTENTE_BACKOFFICE_LIBRARY", "/nonexistent/libqdx.so", 1);
    std::string reply = "sin cambios";
    EXPECT_EQ(run(reply), 0);
    EXPECT_EQ(reply, "sin cambios");
    ::unsetenv("ASISTENTE_BACKOFFICE_LIBRARY");
    ASSERT_FALSE(logLines().empty());
    EXPECT_NE(logLines()[0].find("(QDX:EjecutarOperacion)"), std::string::npos);
    EXPECT_NE(logLines()[0].find("libqdx.so"), std::string::npos);
}

TEST_F(QdxTest, operationLimitsAreReadByProductAndOperation)
{
    library->queue(0, "<Configuration>"
                      "<Product ProductID='300'><Operation OperationID='9'>"
                      "<MaxOperations>5</MaxOperations></Operation>"
                      "<Operation OperationID='16'><Limit><MaxOperations>2</MaxOperations></Limit>"
                      "</Operation></Product>"
                      "<Product ProductID='301'/></Configuration>");
    ASSERT_TRUE(QDXGetOperationConfiguration());
    EXPECT_EQ(library->calls[0].operationId, 14);
    EXPECT_EQ(library->calls[0].request, "");
    EXPECT_EQ(gOperationLimits.item("300").item("9"), 5);
    EXPECT_EQ(gOperationLimits.item("300").item("16"), 2);
    // A product with no operations is an empty map, and no error.
    EXPECT_EQ(gOperationLimits.item("301").count(), 0);
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(QdxTest, badConfigurationsFailWithTheirTexts)
{
    const std::string prefix =
        "El XML retornado por el QDX en EjecutarOperacion.QDX_Obtener_Informacion_Configuracion ";
    struct Case
    {
        const char *name;
        std::string reply;
        std::string logged;
    };
    const Case cases[] = {
        {"no MaxOperations",
         "<C><Product ProductID='300'><Operation OperationID='9'/></Product></C>",
         "Error: -10502 (QDX:QDXGetOperationConfiguration): " + prefix
             + "no tiene la etiqueta MaxOperations: "},
        {"no ProductID", "<C><Product Id='300'/></C>",
         "Error: -10502 (QDX:QDXGetOperationConfiguration): " + prefix
             + "no tiene el atributo ProductID: "},
        {"no OperationID", "<C><Product ProductID='1'><Op Max='1'/></Product></C>",
         "Error: -10502 (QDX:QDXGetOperationConfiguration): " + prefix
             + "no tiene el atributo OperationID: "},
        {"a text inside a product", "<C><Product ProductID='1'>5</Product></C>",
         "Error: -10502 (QDX:QDXGetOperationConfiguration): " + prefix
             + "no tiene atributos para Operation: "},
        {"malformed", "<C><Product>", "Error: -10502 (QDX:QDXGetOperationConfiguration): "
                                          + prefix + "está mal construido: <C><Product>"},
        {"a duplicate product", "<C><Product ProductID='1'/><Product ProductID='1'/></C>",
         "Error: 457 (QDX:QDXGetOperationConfiguration): "},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove(workDir / "bitacora.log");
        library->queue(0, c.reply);
        EXPECT_FALSE(QDXGetOperationConfiguration());
        ASSERT_EQ(logLines().size(), 1u);
        EXPECT_NE(logLines()[0].find(c.logged), std::string::npos) << logLines()[0];
        gAppRunning = true;
    }
}

TEST_F(QdxTest, aConnectorCodeForTheConfigurationIsRaisedWithItsText)
{
    library->queue(-2048);
    library->queue(-2048);
    EXPECT_FALSE(QDXGetOperationConfiguration());
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find(
                  "Error: -2048 (QDX:QDXGetOperationConfiguration): Error en "
                  "QDX_Obtener_Informacion_Configuracion: EjecutarOperacion (-2048) Error "
                  "conectándose a través del socket"),
              std::string::npos);
    // Unknown type: the generic text, then the closing box.
    EXPECT_EQ(ui->boxTexts().back(), "La aplicación será cerrada");
}

TEST(QdxErrorTexts, knownAndUnknownCodes)
{
    EXPECT_EQ(QDXGetErrorMsg(0), "Ningun Error");
    EXPECT_EQ(QDXGetErrorMsg(-2035), "Dirección de máquina invalida");
    EXPECT_EQ(QDXGetErrorMsg(-2011), "Error desconocido");
    EXPECT_EQ(QDXGetErrorMsg(5), "Error desconocido");
}
