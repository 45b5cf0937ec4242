#include "StoresTest.h"

using SellerTest = StoresTest;

TEST_F(SellerTest, theClientDataComesFromTheErpAndBuildsTheConnectionString)
{
    EXPECT_EQ(gSeller->id(), "V1042");
    EXPECT_EQ(gSeller->license(), "NUB-LIC-2026-0042");
    EXPECT_EQ(gSeller->connectionString(),
              "Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;Database=AsistenteDemo");
    EXPECT_FALSE(gSeller->isSessionStarted());
}

TEST_F(SellerTest, theSessionOpensOnceWithTheClientKeys)
{
    const std::int32_t id = gSeller->sessionId();
    EXPECT_EQ(gSeller->sessionId(), id);
    EXPECT_EQ(backOffice->openedWith, std::vector<std::string>{"NUB-LIC-2026-0042|QK-7F3A9C|4711"});
    EXPECT_TRUE(gSeller->isSessionStarted());
}

TEST_F(SellerTest, closingBeforeAnySessionMakesNoCall)
{
    gSeller->closeSession();
    EXPECT_TRUE(backOffice->closed.empty());
}

TEST_F(SellerTest, aFailedCloseKeepsTheSessionStarted)
{
    gSeller->sessionId();
    backOffice->closeCode = -2004;
    gSeller->closeSession();
    EXPECT_TRUE(gSeller->isSessionStarted());
    ASSERT_FALSE(logLines().empty());
    EXPECT_NE(logLines()[0].find("Error: -11002 (Seller:closeSession): Error llamando a QDX en "
                                 "CerrarSesion: -2004:Error al tratar de cerrar la sesión"),
              std::string::npos);
}

TEST_F(SellerTest, theWrongProviderIsLoggedInWordsButShownAsTheGenericText)
{
    backOffice->openCode = -2035;
    EXPECT_EQ(gSeller->sessionId(), 0);
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: -2035 (Seller:sessionId): Está intentando conectarse a "
                                 "Sorvek a través de un proveedor de Internet distinto a Brantova"),
              std::string::npos);
    EXPECT_EQ(ui->boxTexts(),
              (std::vector<std::string>{
                  "Error: -2035: Error de la aplicación. Contacte al administrador del sistema",
                  "La aplicación será cerrada"}));
}

TEST_F(SellerTest, anyOtherOpeningCodeNamesItsText)
{
    backOffice->openCode = -2048;
    EXPECT_EQ(gSeller->sessionId(), 0);
    EXPECT_NE(logLines().at(0).find("(Seller:sessionId): Error llamando a QDX en IniciarSesion: "
                                    "-2048 Error conectándose a través del socket"),
              std::string::npos);
    EXPECT_FALSE(gSeller->isSessionStarted());
}

TEST_F(SellerTest, aFailingErpIsFatalNamesTheFunctionAndLeavesTheBuffersAsTheyStood)
{
    const std::string nul(256, '\0');
    const auto written = [&](const std::string &text) { return text + nul.substr(text.size()); };
    struct Row
    {
        const char *name;
        std::int32_t FakeErp::*code;
        const char *function;
        std::vector<std::string> texts; // license, id, server, database, user, password
    };
    const Row rows[] = {
        // The ERP wrote the keys before it failed; the second call was never made.
        {"the client's keys fail",
         &FakeErp::clientCode,
         "ObtenerIDCliente",
         {written("NUB-LIC-2026-0042"), written("V1042"), nul, nul, nul, nul}},
        {"the database's coordinates fail",
         &FakeErp::databaseCode,
         "ObtenerDataBase",
         {written("NUB-LIC-2026-0042"), written("V1042"), written("localhost"),
          written("AsistenteDemo"), written("vendedor"), written("demo")}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        std::filesystem::remove(workDir / "bitacora.log");
        gAppRunning = true;
        gSeller.reset();
        erp->clientCode = 0;
        erp->databaseCode = 0;
        (*erp).*row.code = 3;
        const Seller &seller = *gSeller;
        EXPECT_EQ(logLines().at(0).substr(21), "Error: -11001 (Seller:GetClientInfo): APIDovel." +
                                                   std::string(row.function) +
                                                   " falló con código de error 3\"");
        EXPECT_EQ((std::vector<std::string>{seller.license(), seller.id(), seller.server(),
                                            seller.database(), seller.user(), seller.password()}),
                  row.texts);
        EXPECT_FALSE(gAppRunning);
        ui->clearBoxes();
    }
}
