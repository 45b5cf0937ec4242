#include "stores/ZorvantaMinistore.h"

#include "StoresTest.h"
#include "platform/xml/XmlDocument.h"
#include "stores/SellerTax.h"

#include <gmock/gmock.h>

namespace {

using ZorvantaMinistoreTest = StoresTest;

XmlNode rootOf(const std::string &text)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(text)) << text;
    return document.documentElement();
}

const std::string kBackOfficeNode =
    "<Store><ProductID>310</ProductID><MaxProducts>500</MaxProducts><Status>A</Status></Store>";

struct FillingCase
{
    const char *situation;
    const char *storeNode;
    const char *expected; // id|name|Description|published|plan|limit|status
};

const FillingCase kFillingCases[] = {
    {"a complete node fills everything",
     "<Store><StoreID>300</StoreID><Name>Tecno</Name><Description>Casa</Description>"
     "<NumberOfProducts>2</NumberOfProducts></Store>",
     "300|Tecno|Casa|2|310|500|A"},
    {"an empty Description gives an empty text and the count is still read",
     "<Store><StoreID>300</StoreID><Name>Tecno</Name><Description/>"
     "<NumberOfProducts>2</NumberOfProducts></Store>",
     "300|Tecno||2|310|500|A"},
    {"an empty Name stops the filling after the id, silently",
     "<Store><StoreID>300</StoreID><Name/><NumberOfProducts>2</NumberOfProducts></Store>",
     "300|||0|0|0|"},
};

struct TaxCase
{
    const char *situation;
    const char *taxes;
    const char *wire;
};

const TaxCase kTaxCases[] = {
    {"a seller with no taxes sends an empty list", "", "<Taxes/>"},
    {"a general tax carries its amount here",
     "<Impuesto CodigoImpuesto='IVA'><Cantidad>16"
     "</Cantidad><TipoMonto>0</TipoMonto></Impuesto>",
     "<Taxes><Tax><TaxID>IVA</TaxID><AmountType>1</AmountType><Amount>16</Amount></Tax></Taxes>"},
    {"a percentage is amount type 2",
     "<Impuesto CodigoImpuesto='ECO'><TipoImpuesto>L"
     "</TipoImpuesto><Cantidad>1.50</Cantidad><TipoMonto>1</TipoMonto></Impuesto>",
     "<Taxes><Tax><TaxID>ECO</TaxID><AmountType>2</AmountType><Amount>1.50</Amount></Tax>"
     "</Taxes>"},
};

} // namespace

TEST_F(ZorvantaMinistoreTest, fillingFromTheTwoNodesNeverReports)
{
    for (const FillingCase &row : kFillingCases) {
        ZorvantaMinistore m;
        m.setXml(rootOf(row.storeNode), rootOf(kBackOfficeNode));
        EXPECT_EQ(m.id() + "|" + m.name() + "|" + m.Description() + "|" +
                      std::to_string(m.totalPublishedProducts()) + "|" +
                      std::to_string(m.productId()) + "|" +
                      std::to_string(m.maxPublishedProducts()) + "|" + m.status(),
                  row.expected)
            << row.situation;
    }
    EXPECT_TRUE(ui->boxes().empty());
    EXPECT_TRUE(logLines().empty());
}

TEST_F(ZorvantaMinistoreTest, aPublicationWaitingForWithdrawalDoesNotCount)
{
    const auto ministore = ministore100();
    database->execute(Sql("INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) "
                          "VALUES (1, '100', 'K')"));
    database->execute(Sql("INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                          "Estado) VALUES (1, 1, '100', 'E')"));
    EXPECT_EQ(ministore->totalPublishedBySeller(), 0);
    EXPECT_EQ(ministore->totalPublishedProducts(), 3);
}

TEST_F(ZorvantaMinistoreTest, onlyMinus8000IsARefusalOtherNumbersAreErrors)
{
    const auto ministore = ministore100();
    const auto answer = [&](const char *number) {
        backOffice->queue(0, std::string("<ValidateUser><RESULT><RETURNCODE>") + number +
                                 "</RETURNCODE><DESCRIPTION>No es suya</DESCRIPTION></RESULT>"
                                 "</ValidateUser>");
    };
    answer("-8000");
    EXPECT_FALSE(ministore->validateUser());
    EXPECT_TRUE(ui->boxes().empty());
    answer("-8001");
    EXPECT_FALSE(ministore->validateUser());
    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Error: -8001: No es suya"});
}

TEST_F(ZorvantaMinistoreTest, taxesGoToTheMarketplaceWithTheirAmountTypeAndAmount)
{
    for (const TaxCase &row : kTaxCases) {
        gSeller.reset();
        erp->taxesReply = std::string("<ObtenerImpuestos>") + row.taxes + "</ObtenerImpuestos>";
        const auto ministore = ministore100();
        backOffice->queue(0, "<SetTaxes>" + kSuccess + "<Taxes/></SetTaxes>");
        EXPECT_TRUE(ministore->setTaxesInZorvanta()) << row.situation;
        EXPECT_EQ(backOffice->calls.back().request,
                  std::string("<SetTaxes><StoreID>100</StoreID><SellerID>V1042</SellerID>") +
                      row.wire + "</SetTaxes>")
            << row.situation;
    }
}

TEST_F(ZorvantaMinistoreTest, aProductNamesEachTaxByTypeAndAmountType)
{
    const std::pair<const char *, const char *> forms[] = {
        {"G0", "<Tax><TaxID>T</TaxID><AmountType>0</AmountType></Tax>"},
        {"G1", "<Tax><TaxID>T</TaxID><AmountType>0</AmountType></Tax>"},
        {"L0", "<Tax><TaxID>T</TaxID><AmountType>1</AmountType><Amount>2</Amount></Tax>"},
        {"L1", "<Tax><TaxID>T</TaxID><AmountType>2</AmountType><Amount>2</Amount></Tax>"},
        {"X0", ""},
    };
    for (const auto &[typeAndAmountType, wire] : forms) {
        const std::string form = typeAndAmountType;
        SellerTax tax;
        tax.setXml(rootOf("<Impuesto CodigoImpuesto='T'><TipoImpuesto>" + form.substr(0, 1) +
                          "</TipoImpuesto><Cantidad>2</Cantidad><TipoMonto>" + form.substr(1) +
                          "</TipoMonto></Impuesto>"));
        EXPECT_EQ(tax.xml(), wire) << form;
    }
}

TEST_F(ZorvantaMinistoreTest, theMarketplacesAnswerForEachTaxDecidesWhetherTheStoreGoesOn)
{
    const std::string accepted =
        "<Tax><TaxID>IVA</TaxID><RETURNCODE>0</RETURNCODE><DESCRIPTION>ok</DESCRIPTION></Tax>";
    const std::string prefix =
        "El XML retornado por QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos ";
    struct Row
    {
        const char *situation;
        std::string answer; // what follows the RESULT block
        bool accepted;
        std::string error; // number: text, the reply follows it
        bool shownInWords;
    };
    const Row rows[] = {
        {"every tax accepted", "<Taxes>" + accepted + accepted + "</Taxes>", true, "", false},
        // The refusal is read before its DESCRIPTION, and no tax after it is looked at.
        {"one refused tax stops the store although the others were accepted",
         "<Taxes>" + accepted +
             "<Tax><TaxID>ECO</TaxID><RETURNCODE>-10004</RETURNCODE></Tax><Tax/></Taxes>",
         false, "-10004: " + prefix + "dió error para un impuesto : ", true},
        {"a reply without Taxes", "", false,
         "-10502: XML retornado por QDX.dll en EjecutarOperacion QDX_Sincronizar_Impuestos no "
         "tiene nodo Taxes: ",
         false},
        {"a tax answer without its code",
         "<Taxes><Tax><TaxID>IVA</TaxID><DESCRIPTION>ok</DESCRIPTION></Tax></Taxes>", false,
         "-10502: " + prefix + "no tiene etiqueta RETURNCODE : ", false},
    };
    erp->taxesReply = "<ObtenerImpuestos><Impuesto CodigoImpuesto='IVA'><Cantidad>16</Cantidad>"
                      "<TipoMonto>0</TipoMonto></Impuesto></ObtenerImpuestos>";
    const auto ministore = ministore100();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.situation);
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        const std::string reply = "<SetTaxes>" + kSuccess + row.answer + "</SetTaxes>";
        backOffice->queue(0, reply);

        EXPECT_EQ(ministore->setTaxesInZorvanta(), row.accepted);

        if (row.accepted) {
            EXPECT_TRUE(logLines().empty());
            continue;
        }
        const std::string number = row.error.substr(0, row.error.find(':'));
        ASSERT_EQ(logLines().size(), 1u);
        EXPECT_EQ(logLines()[0].substr(21), "Error: " + number +
                                                " (ZorvantaMinistore:setTaxesInZorvanta): " +
                                                row.error.substr(number.size() + 2) + reply + "\"");
        EXPECT_EQ(ui->boxTexts(),
                  std::vector<std::string>{
                      "Error: " + number + ": " +
                      (row.shownInWords ? row.error.substr(number.size() + 2) + reply
                                        : "Error de la aplicación. Contacte al administrador "
                                          "del sistema")});
        EXPECT_TRUE(gAppRunning);
    }
}
