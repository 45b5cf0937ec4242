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

TEST_F(SellerTest, aFailingErpIsFatalAndNamesTheFunction)
{
    erp->databaseCode = 3;
    gSeller->id();
    EXPECT_NE(logLines().at(0).find("Error: -11001 (Seller:GetClientInfo): APIDovel."
                                    "ObtenerDataBase falló con código de error 3"),
              std::string::npos);
    EXPECT_FALSE(gAppRunning);
}
