#include "catalogue/SellerProduct.h"

#include "ErpTest.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"
#include "stores/SellerTax.h"

namespace {

using Texts = std::vector<std::string>;
constexpr const char *kDefinition = "ObtenerDefinicionProducto";

const char *const kDetail =
    "<ObtenerDefinicionProducto><CodigoDovel>ERP-0001</CodigoDovel>"
    "<Descripcion>Taladro percutor</Descripcion><Precio1>89.90</Precio1><Precio2>80.91</Precio2>"
    "<Precio3>71.92</Precio3><Impuestos><Impuesto CodigoImpuesto='IVA'><DescripcionImpuesto>IVA"
    "</DescripcionImpuesto><TipoImpuesto>G</TipoImpuesto><Cantidad>16</Cantidad><TipoMonto>0"
    "</TipoMonto></Impuesto><Impuesto CodigoImpuesto='ECO'><TipoImpuesto>L</TipoImpuesto>"
    "<Cantidad>1.50</Cantidad><TipoMonto>1</TipoMonto></Impuesto></Impuestos>"
    "</ObtenerDefinicionProducto>";

class SellerProductTest : public ErpTest
{
protected:
    /// A product read from one line of a list.
    std::shared_ptr<SellerProduct> line(const std::string &producto)
    {
        XmlDocument list;
        EXPECT_TRUE(list.loadXML("<ObtenerContenidoCategoria><Productos>" + producto +
                                 "</Productos></ObtenerContenidoCategoria>"));
        auto product = std::make_shared<SellerProduct>();
        product->setXml(list.selectSingleNode("//Producto"));
        return product;
    }
    std::shared_ptr<SellerProduct> drill()
    {
        return line("<Producto><CodigoDovel>ERP-0001</CodigoDovel><Descripcion>Taladro"
                    "</Descripcion><Referencia>FOR-1010</Referencia></Producto>");
    }
};

Texts taxIds(const std::shared_ptr<SellerProduct::Taxes> &taxes)
{
    Texts ids;
    for (const auto &tax : *taxes)
        ids.push_back(tax->id());
    return ids;
}

} // namespace

TEST_F(SellerProductTest, aLineGivesCodeDescriptionAndReferenceWithoutAskingTheErp)
{
    const auto product = drill();
    EXPECT_EQ(product->dovelID(), "ERP-0001");
    EXPECT_EQ(product->Description(), "Taladro");
    EXPECT_EQ(product->Reference(), "FOR-1010");
    EXPECT_TRUE(erp->calls.empty());
}

TEST_F(SellerProductTest, aReferenceOrADescriptionMayBeMissing)
{
    const auto product =
        line("<Producto><CodigoDovel>ERP-2</CodigoDovel><Descripcion/></Producto>");
    EXPECT_EQ(product->Reference(), "");
    EXPECT_EQ(product->Description(), "");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(SellerProductTest, pricesAndTaxesAreReadOnceOnFirstUse)
{
    erp->queue(kDefinition, {0, kDetail, ""});
    const auto product = drill();
    EXPECT_EQ(product->price2(), "80.91");
    EXPECT_EQ(product->price1(), "89.90");
    EXPECT_EQ(product->price3(), "71.92");
    EXPECT_EQ(taxIds(product->taxes()), (Texts{"IVA", "ECO"}));
    EXPECT_EQ(product->taxes()->item(2)->quantity(), "1.50");
    const auto calls = erp->callsOf(kDefinition);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].productType, 0);
    EXPECT_EQ(calls[0].text, "ERP-0001");
    EXPECT_EQ(calls[0].ministoreId, "");
    // The list's summary stays as the list gave it.
    EXPECT_EQ(product->Description(), "Taladro");
}

TEST_F(SellerProductTest, aFailedDetailIsAskedForAgainOnTheNextRead)
{
    erp->queue(kDefinition, {0, "<ObtenerDefinicionProducto>", ""});
    erp->queue(kDefinition, {0, kDetail, ""});
    const auto product = drill();
    EXPECT_EQ(product->price1(), "");
    EXPECT_EQ(loggedError(), "Error: -10500 (SellerProduct:getDetailInformation): El XML "
                             "retornado por APIDovel.ObtenerDefinicionProducto está mal "
                             "construido: <ObtenerDefinicionProducto> para el idDovel: ERP-0001");
    EXPECT_EQ(product->price1(), "89.90");
    EXPECT_EQ(erp->callsOf(kDefinition).size(), 2u);
}

TEST_F(SellerProductTest, aFailedCallForTheDetailIsFatal)
{
    erp->queue(kDefinition, {6002, "", ""});
    const auto product = drill();
    EXPECT_EQ(product->taxes(), nullptr);
    EXPECT_EQ(loggedError(), "Error: -11001 (DovelCategory:startQuery): La función "
                             "APIDovel.ObtenerInformacionProducto retornó con error 6002 para el "
                             "idDovel: ERP-0001");
    EXPECT_FALSE(gAppRunning);
}

TEST_F(SellerProductTest, aDetailWithoutAPriceIsReportedAndNotAskedForAgain)
{
    struct Row
    {
        const char *what;
        std::string detail;
        std::string error;
    };
    const std::string emptyPrice = "<ObtenerDefinicionProducto><CodigoDovel>E</CodigoDovel>"
                                   "<Descripcion/><Precio1/></ObtenerDefinicionProducto>";
    const std::string noPrice3 = "<ObtenerDefinicionProducto><CodigoDovel>E</CodigoDovel>"
                                 "<Descripcion/><Precio1>1</Precio1><Precio2>2</Precio2>"
                                 "</ObtenerDefinicionProducto>";
    const Row rows[] = {
        {"an empty price is no price", emptyPrice, "no tiene valor para Precio1: " + emptyPrice},
        {"a missing price", noPrice3, "no tiene etiqueta Precio3: " + noPrice3},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        erp->queue(kDefinition, {0, row.detail, ""});
        const auto product = drill();
        product->price1();
        product->price2();
        EXPECT_EQ(loggedError(), "Error: -10500 (SellerProduct:Let xml): El XML retornado por "
                                 "APIDovel.ObtenerDefinicionProducto " +
                                     row.error);
        EXPECT_EQ(product->taxes(), nullptr);
    }
    EXPECT_EQ(erp->callsOf(kDefinition).size(), 2u);
}

TEST_F(SellerProductTest, aLineWithoutItsCodeIsReported)
{
    struct Row
    {
        const char *what;
        const char *producto;
        const char *error;
    };
    const Row rows[] = {
        {"no CodigoDovel", "<Producto><Descripcion>x</Descripcion></Producto>",
         "no tiene etiqueta CodigoDovel: <Producto><Descripcion>x</Descripcion></Producto>"},
        {"an empty CodigoDovel", "<Producto><CodigoDovel/><Descripcion>x</Descripcion></Producto>",
         "no tiene valor para el CodigoDovel: <Producto><CodigoDovel/><Descripcion>x"
         "</Descripcion></Producto>"},
        {"no Descripcion", "<Producto><CodigoDovel>E</CodigoDovel></Producto>",
         "no tiene etiqueta Descripcion: <Producto><CodigoDovel>E</CodigoDovel></Producto>"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        line(row.producto);
        EXPECT_EQ(loggedError(), std::string("Error: -10500 (SellerProduct:Let xml): El XML "
                                             "retornado por APIDovel.ObtenerContenidoCategoria ") +
                                     row.error);
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(SellerProductTest, aDetailReplyFillsBothPartsOnce)
{
    XmlDocument detail;
    ASSERT_TRUE(detail.loadXML(kDetail));
    SellerProduct product;
    product.setXml(detail.documentElement());
    EXPECT_EQ(product.dovelID(), "ERP-0001");
    EXPECT_EQ(product.price1(), "89.90");
    XmlDocument other;
    ASSERT_TRUE(other.loadXML("<ObtenerDefinicionProducto><CodigoDovel>X</CodigoDovel>"
                              "<Descripcion/><Precio1>1</Precio1><Precio2>2</Precio2>"
                              "<Precio3>3</Precio3></ObtenerDefinicionProducto>"));
    product.setXml(other.documentElement());
    EXPECT_EQ(product.dovelID(), "ERP-0001");
    EXPECT_EQ(product.price1(), "89.90");
    EXPECT_TRUE(erp->calls.empty());
}
