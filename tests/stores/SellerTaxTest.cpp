#include "ShellTest.h"

#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "stores/SellerTax.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class SellerTaxTest : public ShellTest
{
protected:
    SellerTax taxOf(const std::string &node)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(node));
        SellerTax tax;
        tax.setXml(document.documentElement());
        return tax;
    }
};

struct WireCase
{
    const char *situation;
    const char *type;
    const char *amountType;
    const char *wire;
};

const WireCase kWireCases[] = {
    {"a general tax is named by its id alone", "G", "1",
     "<Tax><TaxID>T1</TaxID><AmountType>0</AmountType></Tax>"},
    {"a local fixed amount", "L", "0",
     "<Tax><TaxID>T1</TaxID><AmountType>1</AmountType><Amount>2.5</Amount></Tax>"},
    {"a local percentage", "L", "1",
     "<Tax><TaxID>T1</TaxID><AmountType>2</AmountType><Amount>2.5</Amount></Tax>"},
    {"a local tax of an unknown amount type", "L", "2", ""},
    {"an unknown tax type", "X", "0", ""},
};

} // namespace

TEST_F(SellerTaxTest, wireFormFollowsTypeAndAmountType)
{
    for (const WireCase &row : kWireCases) {
        const SellerTax tax = taxOf(std::string("<Impuesto CodigoImpuesto='T1'><TipoImpuesto>")
                                    + row.type + "</TipoImpuesto><Cantidad>2.5</Cantidad>"
                                    + "<TipoMonto>" + row.amountType + "</TipoMonto></Impuesto>");
        EXPECT_EQ(tax.xml(), row.wire) << row.situation;
    }
}

TEST_F(SellerTaxTest, anElementCodeOverridesTheAttributeAndTheTypeDefaultsToGeneral)
{
    const SellerTax tax = taxOf("<Impuesto CodigoImpuesto='A'><CodigoImpuesto>B</CodigoImpuesto>"
                                "<DescripcionImpuesto>IVA</DescripcionImpuesto><Cantidad>16"
                                "</Cantidad><TipoMonto>1</TipoMonto></Impuesto>");
    EXPECT_EQ(tax.id(), "B");
    EXPECT_EQ(tax.taxType(), "G");
    EXPECT_EQ(tax.Description(), "IVA");
    EXPECT_EQ(tax.amountType(), 1);
}

TEST_F(SellerTaxTest, aTaxWithoutAmountIsReportedAndTheRunGoesOn)
{
    const SellerTax tax = taxOf("<Impuesto CodigoImpuesto='IVA'><TipoMonto>0</TipoMonto></Impuesto>");
    EXPECT_EQ(tax.id(), "IVA");
    EXPECT_EQ(ui->boxTexts(),
              std::vector<std::string>{
                  "Error: -10500: Error de la aplicación. Contacte al administrador del sistema"});
    EXPECT_THAT(logLines().at(0),
                HasSubstr("(SellerTax:Let xml): El XML retornado por APIDovel.ObtenerImpuestos no "
                          "tiene etiqueta Cantidad: <Impuesto CodigoImpuesto=\"IVA\">"));
    EXPECT_TRUE(gAppRunning);
}
