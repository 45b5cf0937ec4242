// An association read from the ERP's lists and details, and compared with a stored one.

#include "AssociationTest.h"
#include "publication/SellerLists.h"

#include <gmock/gmock.h>
#include <tuple>

namespace {

const std::string kVariantRed =
    "<Properties/><VariantProperties><Field fieldID='Color'><![CDATA[Rojo]]></Field>"
    "</VariantProperties>";

std::string listLine(const std::string &association, const std::string &marketplace)
{
    return "<ObtenerContenidoCategoria><Productos><Producto><CodigoDovel>ERP-0001</CodigoDovel>"
           "<Descripcion>Camiseta básica</Descripcion><Referencia>CAM-1</Referencia>" +
           association + marketplace + "</Producto></Productos></ObtenerContenidoCategoria>";
}

const std::string kLine =
    listLine("<CodigoAsociacion>7</CodigoAsociacion>", "<CodigoZorvanta>ZP-00191</CodigoZorvanta>");

std::string detail(const std::string &date, const std::string &attributes)
{
    return "<ObtenerDefinicionProducto><CodigoDovel>ERP-0001</CodigoDovel><Descripcion>Camiseta"
           "</Descripcion><Precio1>10.00</Precio1><Precio2>9.00</Precio2><Precio3>8.00</Precio3>"
           "<Impuestos/><CodigoAsociacion>7</CodigoAsociacion><CodigoZorvanta>ZP-00191"
           "</CodigoZorvanta>" +
           date + attributes + "</ObtenerDefinicionProducto>";
}

const std::string kDetail =
    detail("<FechaAsociacion>2026-01-10 09:00:00</FechaAsociacion>",
           "<AtributosCaracteristicos><Properties><Field fieldID='Peso'><![CDATA[12.5]]></Field>"
           "</Properties><VariantProperties><Field fieldID='Color'><![CDATA[Rojo]]></Field>"
           "</VariantProperties></AtributosCaracteristicos>");

XmlNode nodeOf(const std::string &text, const std::string &query)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(text)) << text;
    return document.selectSingleNode(query);
}

class AssociatedProductTest : public AssociationTest
{
protected:
    /// The association of a list line, as the associated list makes it, with the shirt as
    /// its marketplace side.
    std::shared_ptr<AssociatedProduct> listed(const std::string &line = kLine)
    {
        registerSellerListLines();
        auto made = std::dynamic_pointer_cast<AssociatedProduct>(
            ProductLine::make(1, nodeOf(line, "//Producto"), nullptr));
        EXPECT_NE(made, nullptr);
        if (made && made->theZorvantaProduct())
            made->setZorvantaProd(shirt);
        return made;
    }
    /// A stored association of the same two products, re-read from its attribute text.
    std::shared_ptr<AssociatedProduct> stored(const std::string &attributes,
                                              const std::string &dovelID = "ERP-0001")
    {
        auto row = association({}, dovelID);
        row->setVariantattributes(nullptr);
        row->setXml(nodeOf(
            "<AtributosCaracteristicos>" + attributes + "</AtributosCaracteristicos>", "/*"));
        return row;
    }
};

} // namespace

TEST_F(AssociatedProductTest, aListLineGivesTheIdsAndTheErpProductWithoutAskingTheErp)
{
    registerSellerListLines();
    const auto line = std::dynamic_pointer_cast<AssociatedProduct>(
        ProductLine::make(1, nodeOf(kLine, "//Producto"), nullptr));
    ASSERT_NE(line, nullptr) << "the associated list makes associations";
    EXPECT_EQ(line->associationId(), "7");
    EXPECT_EQ(line->theZorvantaProduct()->id(), "ZP-00191");
    EXPECT_FALSE(line->theZorvantaProduct()->isDefinition());
    EXPECT_EQ(line->SellerProduct_dovelID(), "ERP-0001");
    EXPECT_EQ(line->SellerProduct_Description(), "Camiseta básica");
    EXPECT_EQ(line->SellerProduct_Reference(), "CAM-1");
    EXPECT_EQ(line->sellerProduct(), line->theSellerProduct());
    EXPECT_TRUE(erp->calls.empty());

    // The line a list made it from is read once.
    line->setXml(nodeOf(listLine("<CodigoAsociacion>8</CodigoAsociacion>",
                                 "<CodigoZorvanta>ZP-00999</CodigoZorvanta>"),
                        "//Producto"));
    EXPECT_EQ(line->associationId(), "7");
    EXPECT_EQ(line->theZorvantaProduct()->id(), "ZP-00191");
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(AssociatedProductTest, theDetailIsAskedForOnceWhenTheValuesOrTheDateAreFirstNeeded)
{
    const auto line = listed();
    erp->detailReply = kDetail;
    EXPECT_EQ(shown(line->variantattributes()), (Texts{"Peso=12,5", "Color=Rojo"}));
    EXPECT_TRUE(line->variantattributes()->contains("Color")) << "keyed by property id";
    EXPECT_EQ(line->associationDate(), QDateTime(QDate(2026, 1, 10), QTime(9, 0, 0)));
    EXPECT_EQ(line->SellerProduct_price1(), "10.00") << "the same detail fills the ERP side";
    EXPECT_EQ(line->SellerProduct_price3(), "8.00");
    EXPECT_EQ(erp->calls, Texts{"1|7|"});
    EXPECT_TRUE(loggedErrors().empty());

    // Values a page chose are the association's, never replaced by a detail.
    const auto chosen = association({{"Color", "Azul"}});
    EXPECT_EQ(shown(chosen->variantattributes()), Texts{"Color=Azul"});
    EXPECT_EQ(erp->calls.size(), 1u);
}

TEST_F(AssociatedProductTest, aDetailTheErpCannotGiveIsReportedWithTheAssociationsId)
{
    const std::tuple<const char *, std::int32_t, std::string, std::string, bool> rows[] = {
        {"the ERP answers a code", 6003, kDetail,
         "Error: -11001 (AssociatedProduct:getDetailInformation): La función "
         "APIDovel.ObtenerDefinicionProducto retornó con error: 6003 para el id de asociación: 7",
         false},
        {"the ERP's XML is broken", 0, "<ObtenerDefinicionProducto>",
         "Error: -10500 (AssociatedProduct:getDetailInformation): El XML retornado por "
         "APIDovel.ObtenerDefinicionProducto está mal construido: <ObtenerDefinicionProducto> "
         "para el id de asociación: 7",
         true},
    };
    for (const auto &[what, code, reply, error, goesOn] : rows) {
        SCOPED_TRACE(what);
        restart();
        const auto line = listed();
        erp->detailCode = code;
        erp->detailReply = reply;
        EXPECT_EQ(line->variantattributes(), nullptr);
        EXPECT_EQ(loggedErrors(), Texts{error});
        EXPECT_EQ(gAppRunning, goesOn);
    }
}

TEST_F(AssociatedProductTest, eachKindOfNodeNamesWhatItLacks)
{
    const std::string list = "El XML retornado por APIDovel.ObtenerContenidoCategoria ";
    const std::string definition = "El XML retornado por APIDovel.ObtenerDefinicionProducto ";
    const std::string date = "<FechaAsociacion>2026-01-10 09:00:00</FechaAsociacion>";
    const std::string noFieldId = "<Field id='Color'><![CDATA[Rojo]]></Field>";
    const std::string fixedIncomplete =
        definition + "tiene el campo AtributosCaracteristicos fijos con información de "
                     "atributos incompleta: ";
    // What the association is given: a list line, a detail after its line, or a table's row.
    enum Kind { Line, Detail, Row };
    const std::tuple<const char *, Kind, std::string, std::string> rows[] = {
        {"a line without its association", Line,
         listLine("", "<CodigoZorvanta>ZP-1</CodigoZorvanta>"),
         list + "no tiene etiqueta CodigoAsociacion: "},
        {"a line whose association is empty", Line,
         listLine("<CodigoAsociacion/>", "<CodigoZorvanta>ZP-1</CodigoZorvanta>"),
         list + "no tiene valor para CodigoAsociacion: "},
        {"a line without its marketplace product", Line,
         listLine("<CodigoAsociacion>7</CodigoAsociacion>", ""),
         list + "no tiene etiqueta CodigoZorvanta: "},
        {"a line whose marketplace product is empty", Line,
         listLine("<CodigoAsociacion>7</CodigoAsociacion>", "<CodigoZorvanta></CodigoZorvanta>"),
         list + "no tiene valor para CodigoZorvanta: "},
        {"a detail without its date", Detail, detail("", "<AtributosCaracteristicos/>"),
         definition + "no tiene etiqueta FechaAsociacion: "},
        {"a detail whose date is empty", Detail,
         detail("<FechaAsociacion/>", "<AtributosCaracteristicos/>"),
         definition + "no tiene valor para FechaAsociacion: "},
        {"a detail without its values", Detail, detail(date, ""),
         definition + "no tiene etiqueta AtributosCaracteristicos: "},
        {"a fixed value without its property", Detail,
         detail(date, "<AtributosCaracteristicos><Properties>" + noFieldId +
                          "</Properties></AtributosCaracteristicos>"),
         fixedIncomplete},
        {"a variant value without its property", Detail,
         detail(date, "<AtributosCaracteristicos><VariantProperties>" + noFieldId +
                          "</VariantProperties></AtributosCaracteristicos>"),
         definition + "tiene el campo AtributosCaracteristicos variables con información de "
                      "atributos incompleta: "},
        {"a table's row with a value without its property", Row,
         "<AtributosCaracteristicos><Properties>" + noFieldId +
             "</Properties><VariantProperties/></AtributosCaracteristicos>",
         fixedIncomplete},
    };
    for (const auto &[what, kind, text, error] : rows) {
        SCOPED_TRACE(what);
        restart();
        const XmlNode node = nodeOf(text, kind == Line ? "//Producto" : "/*");
        const auto association = kind == Line     ? std::make_shared<AssociatedProduct>()
                                 : kind == Detail ? listed()
                                                  : stored("");
        association->setXml(node);
        EXPECT_EQ(loggedErrors(),
                  Texts{"Error: -10500 (AssociatedProduct:Let xml): " + error + node.xml()});
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(AssociatedProductTest, aStoredAssociationIsTheSameWhenEachOfItsValuesIsFoundInTheNewOne)
{
    const std::tuple<const char *, std::string, Pairs, bool> rows[] = {
        {"stored Color=Rojo, new Color=Rojo and Talla=M",
         kVariantRed,
         {{"Color", "Rojo"}, {"Talla", "M"}},
         true},
        {"stored Color=Rojo and Talla=M, new Color=Rojo",
         "<Properties/><VariantProperties><Field fieldID='Color'><![CDATA[Rojo]]></Field>"
         "<Field fieldID='Talla'><![CDATA[M]]></Field></VariantProperties>",
         {{"Color", "Rojo"}},
         false},
        {"stored without values, new with some",
         "<Properties/><VariantProperties/>",
         {{"Color", "Rojo"}},
         false},
        {"stored with values, new without", kVariantRed, {}, false},
        {"both without values", "<Properties/><VariantProperties/>", {}, true},
        {"Rojo stored, rojo chosen", kVariantRed, {{"Color", "rojo"}}, false},
        {"12.5 stored is the 12,5 the seller sees",
         "<Properties><Field fieldID='Peso'><![CDATA[12.5]]></Field></Properties>"
         "<VariantProperties/>",
         {{"Peso", "12,5"}},
         true},
        {"12.5 stored is not a 12.5 typed with a point",
         "<Properties><Field fieldID='Peso'><![CDATA[12.5]]></Field></Properties>"
         "<VariantProperties/>",
         {{"Peso", "12.5"}},
         false},
        {"a fixed value counts as a variant one does",
         "<Properties><Field fieldID='Marca'><![CDATA[Alpaca]]></Field></Properties>"
         "<VariantProperties/>",
         {{"Marca", "Urbano"}, {"Color", "Rojo"}},
         false},
        {"a value under another property", kVariantRed, {{"Talla", "Rojo"}}, false},
    };
    for (const auto &[what, attributes, chosen, same] : rows) {
        const auto row = stored(attributes);
        EXPECT_EQ(association(chosen)->isContained(*row), same) << what;
    }
    EXPECT_FALSE(association({{"Color", "Rojo"}})->isContained(*stored(kVariantRed, "ERP-0002")))
        << "another ERP product";
    EXPECT_TRUE(loggedErrors().empty());
}
