#include "StoresTest.h"

#include "platform/xml/XmlDocument.h"
#include "stores/SellerTax.h"
#include "stores/ZorvantaMinistore.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class ZorvantaMinistoreTest : public StoresTest
{
protected:
    void publish(const std::string &storeId, const std::string &pendingState = {})
    {
        database->execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) "
                                   "VALUES (1, '" << sqlText(storeId) << "', 'K')");
        if (!pendingState.empty())
            database->execute(Sql() << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, "
                                       "IdTienda, Estado) VALUES (1, 1, '"
                                    << sqlText(storeId) << "', '" << sqlText(pendingState) << "')");
    }
    const FakeBackOffice::Call &lastCall() const { return backOffice->calls.back(); }
};

XmlNode rootOf(const std::string &text)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(text)) << text;
    return document.documentElement();
}

struct FillingCase
{
    const char *situation;
    const char *storeNode;
    const char *backOfficeNode;
    const char *expected; // id|name|Description|published|plan|limit|status
};

const FillingCase kFillingCases[] = {
    {"a complete pair of nodes fills everything",
     "<Store><StoreID>100</StoreID><Name>Andina</Name><Description>Casa</Description>"
     "<NumberOfProducts>3</NumberOfProducts></Store>",
     "<Store><ProductID>300</ProductID><MaxProducts>150</MaxProducts><Status>A</Status></Store>",
     "100|Andina|Casa|3|300|150|A"},
    {"an empty Description gives an empty text and the count is still read",
     "<Store><StoreID>300</StoreID><Name>Tecno</Name><Description/>"
     "<NumberOfProducts>0</NumberOfProducts></Store>",
     "<Store><ProductID>310</ProductID><MaxProducts>500</MaxProducts><Status>A</Status></Store>",
     "300|Tecno||0|310|500|A"},
    {"a missing Description is no failure",
     "<Store><StoreID>300</StoreID><Name>Tecno</Name><NumberOfProducts>2</NumberOfProducts></Store>",
     "<Store><ProductID>310</ProductID><MaxProducts>500</MaxProducts><Status>A</Status></Store>",
     "300|Tecno||2|310|500|A"},
    {"an empty Name stops the filling after the id",
     "<Store><StoreID>100</StoreID><Name/><NumberOfProducts>3</NumberOfProducts></Store>",
     "<Store><ProductID>300</ProductID><MaxProducts>150</MaxProducts><Status>A</Status></Store>",
     "100|||0|0|0|"},
    {"a back-office node without MaxProducts leaves the store inactive",
     "<Store><StoreID>100</StoreID><Name>Andina</Name><NumberOfProducts>3</NumberOfProducts></Store>",
     "<Store><ProductID>300</ProductID><Status>A</Status></Store>", "100|Andina||3|0|0|"},
};

} // namespace

TEST_F(ZorvantaMinistoreTest, fillingFromTheTwoNodesNeverReports)
{
    for (const FillingCase &row : kFillingCases) {
        ZorvantaMinistore ministore;
        ministore.setXml(rootOf(row.storeNode), rootOf(row.backOfficeNode));
        const std::string filled =
            ministore.id() + "|" + ministore.name() + "|" + ministore.Description() + "|"
            + std::to_string(ministore.totalPublishedProducts()) + "|"
            + std::to_string(ministore.productId()) + "|"
            + std::to_string(ministore.maxPublishedProducts()) + "|" + ministore.status();
        EXPECT_EQ(filled, row.expected) << row.situation;
    }
    EXPECT_TRUE(ui->boxes().empty());
    EXPECT_TRUE(logLines().empty());
}

TEST_F(ZorvantaMinistoreTest, aPublicationWaitingForWithdrawalDoesNotCount)
{
    const auto ministore = ministore100();
    publish("100", "E");
    EXPECT_EQ(ministore->totalPublishedBySeller(), 0);
    publish("100", "I");
    publish("200");
    EXPECT_EQ(ministore->totalPublishedBySeller(), 1);
    EXPECT_EQ(ministore->totalPublishedProducts(), 3);
}

TEST_F(ZorvantaMinistoreTest, anUnreachableDatabaseIsFatalWithTheDatabaseText)
{
    const auto ministore = ministore100();
    database.reset();
    EXPECT_EQ(ministore->totalPublishedBySeller(), 0);
    EXPECT_EQ(ui->boxTexts(),
              (std::vector<std::string>{kDatabaseBox, "La aplicación será cerrada"}));
    EXPECT_THAT(logLines().at(0), HasSubstr("Error: -11000 (ZorvantaMinistore:"
                                            "totalPublishedBySeller): Error en la base de datos "));
}

TEST_F(ZorvantaMinistoreTest, theCredentialsGoToTheBackOfficeEscaped)
{
    const auto ministore = ministore100();
    ministore->setUsername("carmen");
    ministore->setPassword("a<b&c");
    backOffice->queue(0, "<ValidateUser>" + kSuccess + "</ValidateUser>");
    EXPECT_TRUE(ministore->validateUser());
    EXPECT_EQ(lastCall().operationId, 8);
    EXPECT_EQ(lastCall().request, "<ValidateUser><UserName>carmen</UserName><Password>a&lt;b&amp;c"
                                  "</Password><Store StoreID=\"100\"/></ValidateUser>");
}

TEST_F(ZorvantaMinistoreTest, onlyMinus8000IsARefusalOtherNumbersAreErrors)
{
    const auto ministore = ministore100();
    const auto refusal = [](const char *number) {
        return std::string("<ValidateUser><RESULT><RETURNCODE>") + number
               + "</RETURNCODE><DESCRIPTION>La tienda no es del vendedor</DESCRIPTION></RESULT>"
                 "</ValidateUser>";
    };
    backOffice->queue(0, refusal("-8000"));
    EXPECT_FALSE(ministore->validateUser());
    EXPECT_TRUE(ui->boxes().empty());
    backOffice->queue(0, refusal("-8001"));
    EXPECT_FALSE(ministore->validateUser());
    EXPECT_EQ(ui->boxTexts(),
              std::vector<std::string>{"Error: -8001: La tienda no es del vendedor"});
    EXPECT_TRUE(gAppRunning);
}

TEST_F(ZorvantaMinistoreTest, aReplyThatIsNoResultIsAnError)
{
    const auto ministore = ministore100();
    backOffice->queue(0, "<ValidateUser/>");
    EXPECT_FALSE(ministore->validateUser());
    EXPECT_THAT(logLines().at(0), HasSubstr("Error: -10502 (ZorvantaMinistore:ValidateUser): El XML "
                                            "retornado por EjecutarOperacion (ValidarUsuario) no "
                                            "es un resultado"));
}

TEST_F(ZorvantaMinistoreTest, taxesAreReadOnceAndSentWithTheirAmounts)
{
    erp->taxesReply = "<ObtenerImpuestos>"
                      "<Impuesto CodigoImpuesto='IVA'><TipoImpuesto>G</TipoImpuesto>"
                      "<Cantidad>16</Cantidad><TipoMonto>0</TipoMonto></Impuesto>"
                      "<Impuesto CodigoImpuesto='ECO'><TipoImpuesto>L</TipoImpuesto>"
                      "<Cantidad>1.50</Cantidad><TipoMonto>1</TipoMonto></Impuesto>"
                      "</ObtenerImpuestos>";
    const auto ministore = ministore100();
    const auto taxes = ministore->getTaxesFromSeller();
    ASSERT_EQ(taxes->count(), 2);
    erp->taxesReply = "<ObtenerImpuestos/>";
    EXPECT_EQ(ministore->getTaxesFromSeller(), taxes);

    backOffice->queue(0, "<SetTaxes>" + kSuccess + "<Taxes><Tax><TaxID>IVA</TaxID><RETURNCODE>0"
                             "</RETURNCODE><DESCRIPTION>ok</DESCRIPTION></Tax></Taxes></SetTaxes>");
    EXPECT_TRUE(ministore->setTaxesInZorvanta());
    EXPECT_EQ(lastCall().operationId, 16);
    EXPECT_EQ(lastCall().request,
              "<SetTaxes><StoreID>100</StoreID><SellerID>V1042</SellerID><Taxes>"
              "<Tax><TaxID>IVA</TaxID><AmountType>1</AmountType><Amount>16</Amount></Tax>"
              "<Tax><TaxID>ECO</TaxID><AmountType>2</AmountType><Amount>1.50</Amount></Tax>"
              "</Taxes></SetTaxes>");
}

TEST_F(ZorvantaMinistoreTest, aSellerWithNoTaxesStillSendsAnEmptyList)
{
    erp->taxesReply = "<ObtenerImpuestos/>";
    const auto ministore = ministore100();
    backOffice->queue(0, "<SetTaxes>" + kSuccess + "<Taxes/></SetTaxes>");
    EXPECT_TRUE(ministore->setTaxesInZorvanta());
    EXPECT_THAT(lastCall().request, HasSubstr("<Taxes/>"));
}

TEST_F(ZorvantaMinistoreTest, oneRefusedTaxFailsTheWholeSending)
{
    erp->taxesReply = "<ObtenerImpuestos/>";
    const auto ministore = ministore100();
    backOffice->queue(0, "<SetTaxes>" + kSuccess + "<Taxes>"
                             "<Tax><TaxID>IVA</TaxID><RETURNCODE>0</RETURNCODE><DESCRIPTION>ok"
                             "</DESCRIPTION></Tax>"
                             "<Tax><TaxID>ECO</TaxID><RETURNCODE>-8504</RETURNCODE></Tax>"
                             "</Taxes></SetTaxes>");
    EXPECT_FALSE(ministore->setTaxesInZorvanta());
    EXPECT_THAT(logLines().at(0),
                HasSubstr("Error: -8504 (ZorvantaMinistore:setTaxesInZorvanta): El XML retornado "
                          "por QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos dió error "
                          "para un impuesto : <SetTaxes>"));
}
