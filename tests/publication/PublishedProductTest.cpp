// A publication read from the ERP's lists and details, its attribute text, its last error and
// the association it stands on.

#include "PublicationTest.h"

#include <gmock/gmock.h>
#include <tuple>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// The ERP's detail of publication 10 of the shirt: `extra` holds the publication's own
/// elements after the association's.
std::string detail(const std::string &extra)
{
    return "<ObtenerDefinicionProducto><CodigoDovel>ERP-0495</CodigoDovel><Descripcion>Camisa de "
           "algodón</Descripcion><Precio1>12.90</Precio1><Precio2>11.00</Precio2><Precio3>9.50"
           "</Precio3><Impuestos/><CodigoAsociacion>7</CodigoAsociacion><CodigoPublicacion>10"
           "</CodigoPublicacion><CodigoZorvanta>ZP-00191</CodigoZorvanta><StoreID>100</StoreID>"
           "<FechaAsociacion>2026-01-10 09:00:00</FechaAsociacion><AtributosCaracteristicos>"
           "<Properties/><VariantProperties><Field fieldID='Color'><![CDATA[Azul]]></Field>"
           "</VariantProperties></AtributosCaracteristicos>" +
           extra + "</ObtenerDefinicionProducto>";
}

const std::string kValues =
    "<AtributosNoCaracteristicos><Properties><Field fieldID='Cy_List_Price'><![CDATA[12.5]]>"
    "</Field></Properties><VariantProperties><Field fieldID='Comentario'><![CDATA[Nuevo]]>"
    "</Field></VariantProperties></AtributosNoCaracteristicos>";

/// `text` with the first `from` replaced by `to`.
std::string swapped(std::string text, const std::string &from, const std::string &to)
{
    return text.replace(text.find(from), from.size(), to);
}

const std::string kPublished =
    "<Estado>K</Estado><FechaPublicacion>2026-02-01 10:00:00</FechaPublicacion>" + kValues;

class PublishedProductTest : public PublicationTest
{
protected:
    /// The display text of each value, "id=value", in the collection's order.
    static Texts shown(const std::shared_ptr<PublishedProduct::Values> &values)
    {
        Texts texts;
        if (values)
            for (const auto &value : *values)
                texts.push_back(value->definition()->id() + "=" + value->value());
        return texts;
    }
};

} // namespace

TEST_F(PublishedProductTest, aListLineGivesTheHeaderAndTheAssociationWithoutAskingTheErp)
{
    const auto published = listed(line("10", "K", "2026-02-01 10:00:00"), 2);
    const auto operation = listed(line("11", "A", "2026-2-3 8:5:9"), 3);
    ASSERT_NE(published, nullptr);
    ASSERT_NE(operation, nullptr);

    EXPECT_EQ(published->publicationId(), "10");
    EXPECT_EQ(published->state(), "K");
    EXPECT_EQ(published->publicationDate(), QDateTime(QDate(2026, 2, 1), QTime(10, 0)));
    EXPECT_EQ(published->publicationType(), 2);
    EXPECT_EQ(published->ministore(), store);
    EXPECT_EQ(operation->state(), "A");
    EXPECT_EQ(operation->publicationType(), 3);
    EXPECT_EQ(operation->publicationDate(), QDateTime(QDate(2026, 2, 3), QTime(8, 5, 9)));

    EXPECT_EQ(published->AssociatedProduct_associationId(), "7");
    EXPECT_EQ(published->AssociatedProduct_theSellerProduct()->Description(), "Camisa de algodón");
    EXPECT_EQ(published->sellerProduct(), published->associatedProd()->theSellerProduct());
    EXPECT_TRUE(erp->calls.empty());
    EXPECT_TRUE(logLines().empty());
}

TEST_F(PublishedProductTest, theDetailIsAskedForByTypeWithItsKeyInTheStore)
{
    const std::tuple<const char *, std::int16_t, std::string, Texts> rows[] = {
        {"a publication, by its number", 2, kPublished, {"2|10|100"}},
        {"a pending operation, by its number and the moment of the act",
         3,
         "<Estado>A</Estado>" + kValues,
         {"3|10|2026-02-03 08:05:09|100"}},
        {"a line of no list of publications", 0, kPublished, {}},
    };
    for (const auto &[what, type, extra, calls] : rows) {
        SCOPED_TRACE(what);
        erp->calls.clear();
        erp->detailReply = detail(extra);
        const auto publication = listed(line("10", "A", "2026-2-3 8:5:9"), 3);
        publication->setPublicationType(type);
        const Texts values = shown(publication->nonCharateristicAttributes());
        EXPECT_EQ(erp->calls, calls);
        const Texts read = {"Cy_List_Price=12,5", "Comentario=Nuevo"};
        EXPECT_EQ(values, calls.empty() ? Texts{} : read);
        publication->errorMsg();
        EXPECT_EQ(erp->calls.size(), calls.size()) << "the detail is read once";
    }
    EXPECT_TRUE(logLines().empty());
}

TEST_F(PublishedProductTest, theDetailGivesTheDateTheLastErrorAndTheAssociationsValues)
{
    erp->detailReply = detail("<Estado>K</Estado><FechaPublicacion>2026-02-05 16:30:00"
                              "</FechaPublicacion><NumeroError>-20</NumeroError><MensajeError>"
                              "Precio fuera de rango</MensajeError>" +
                              kValues);
    const auto publication = listed(line("10"), 2);
    EXPECT_EQ(publication->errorMsg(), "Precio fuera de rango");
    EXPECT_EQ(publication->ErrorNumber(), -20) << "no need to read WIPRODPEND";
    EXPECT_EQ(publication->publicationDate(), QDateTime(QDate(2026, 2, 5), QTime(16, 30)));
    EXPECT_EQ(publication->state(), "K") << "the line's header is not read again";
    EXPECT_THAT(shown(publication->AssociatedProduct_variantattributes()),
                ElementsAre("Color=Azul"));
    EXPECT_EQ(publication->AssociatedProduct_theSellerProduct()->price1(), "12.90");
    EXPECT_EQ(erp->calls.size(), 1u);

    // A pending operation keeps the moment of its act: the detail's date is not required.
    erp->detailReply = detail(kValues);
    const auto operation = listed(line("10", "I", "2026-02-03 11:00:00"), 3);
    EXPECT_THAT(shown(operation->nonCharateristicAttributes()),
                ElementsAre("Cy_List_Price=12,5", "Comentario=Nuevo"));
    EXPECT_EQ(operation->publicationDate(), QDateTime(QDate(2026, 2, 3), QTime(11, 0)));
    EXPECT_TRUE(logLines().empty());
}

TEST_F(PublishedProductTest, aLineOrADetailTheErpWroteBadlyIsReportedWithItsXml)
{
    const std::string api = "El XML retornado por APIDovel.";
    const std::string incomplete = "ObtenerDefinicionProducto tiene el campo "
                                   "AtributosNoCaracteristicos ";
    const std::tuple<const char *, std::string, std::string> rows[] = {
        {"a line without its publication",
         swapped(line("10"), "<CodigoPublicacion>10</CodigoPublicacion>", ""),
         "ObtenerContenidoCategoria no tiene etiqueta CodigoPublicacion: "},
        {"a line with an empty publication", swapped(line("10"), ">10<", "><"),
         "ObtenerContenidoCategoria no tiene valor para CodigoPublicacion: "},
        {"a line with an empty date", swapped(line("10"), "2026-02-01 10:00:00", ""),
         "ObtenerDefinicionProducto no tiene valor para FechaPublicacion: "},
        {"a detail without the publication's date",
         swapped(detail(kPublished), "<FechaPublicacion>2026-02-01 10:00:00</FechaPublicacion>",
                 ""),
         "ObtenerDefinicionProducto no tiene etiqueta FechaPublicacion: "},
        {"a detail without the values", swapped(detail(kPublished), kValues, ""),
         "ObtenerDefinicionProducto no tiene etiqueta AtributosNoCaracteristicos: "},
        {"a fixed value without its property",
         swapped(detail(kPublished), "<Field fieldID='Cy_List_Price'>", "<Field>"),
         incomplete + "no variables con información de atributos incompleta: "},
        {"a variant value without its property",
         swapped(detail(kPublished), "<Field fieldID='Comentario'>", "<Field>"),
         incomplete + "variables con información de atributos incompleta: "},
    };
    for (const auto &[what, bad, text] : rows) {
        SCOPED_TRACE(what);
        restart();
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(bad));
        PublishedProduct publication;
        publication.setAssociatedProduct_zorvantaProd(shirt);
        publication.setXml(document.documentElement());
        EXPECT_EQ(loggedErrors(), Texts{"Error: -10500 (PublishedProduct:Let xml): " + api + text +
                                        document.documentElement().xml()});
        EXPECT_TRUE(gAppRunning) << "a bad reply is no reason to close";
    }
}

TEST_F(PublishedProductTest, whatTheProgramCannotHoldClosesTheApplication)
{
    const std::tuple<const char *, std::string, std::int32_t, std::string> rows[] = {
        {"a value of a property the marketplace product no longer has",
         swapped(detail(kPublished), "Comentario", "Bordado"), 5,
         "PublishedProduct:xml Property Set"},
        {"a last error beyond 16 bits",
         detail("<FechaPublicacion>2026-02-01 10:00:00</FechaPublicacion><NumeroError>40000"
                "</NumeroError>" +
                kValues),
         6, "PublishedProduct:xml Property Set"},
    };
    for (const auto &[what, reply, number, source] : rows) {
        SCOPED_TRACE(what);
        restart();
        erp->detailReply = reply;
        listed(line("10"), 2)->nonCharateristicAttributes();
        ASSERT_FALSE(loggedErrors().empty());
        EXPECT_THAT(loggedErrors().front(),
                    HasSubstr("Error: " + std::to_string(number) + " (" + source + "): "));
        EXPECT_FALSE(gAppRunning);
    }
    gAppRunning = true;
}

TEST_F(PublishedProductTest, aDetailTheErpCannotGiveIsReportedAndAskedForAgain)
{
    const std::tuple<const char *, std::int32_t, std::string, std::string, bool> rows[] = {
        {"the ERP fails", 6003, detail(kPublished),
         "Error: -11001 (PublishedProduct:getDetailInformation): La función "
         "APIDovel.ObtenerInformacionProducto retornó con error 6003",
         false},
        {"the reply is no XML", 0, "<ObtenerDefinicionProducto>",
         "Error: -10500 (PublishedProduct:getDetailInformation): El XML retornado por "
         "APIDovel.ObtenerDefinicionProducto está mal construido ",
         true},
    };
    for (const auto &[what, code, reply, error, goesOn] : rows) {
        SCOPED_TRACE(what);
        restart();
        erp->calls.clear();
        erp->detailCode = code;
        erp->detailReply = reply;
        const auto publication = listed(line("10"), 2);
        EXPECT_EQ(publication->errorMsg(), "");
        EXPECT_EQ(loggedErrors(), Texts{error});
        EXPECT_EQ(gAppRunning, goesOn);
        gAppRunning = true;
        publication->errorMsg();
        EXPECT_EQ(erp->calls.size(), 2u);
    }
}

TEST_F(PublishedProductTest, theAttributeTextHoldsEveryValueInOneSectionByTheProduct)
{
    const auto withVariants = std::make_shared<PublishedProduct>();
    withVariants->setAssociatedProd(association());
    withVariants->setNonCharateristicAttributes(
        values({{"Cy_List_Price", "1.234,5"}, {"Group1Quantity", "3"}, {"Comentario", "Sí"}}));
    EXPECT_EQ(withVariants->xml(),
              "<Properties/><VariantProperties><Field fieldID=\"Cy_List_Price\"><![CDATA["
              "1.234.5]]></Field><Field fieldID=\"Group1Quantity\"><![CDATA[3]]></Field>"
              "<Field fieldID=\"Comentario\"><![CDATA[Sí]]></Field></VariantProperties>");

    // The same values on a coffee maker, which has no variant property.
    std::string plain = kShirt;
    plain.erase(plain.find("<VariantProperties>"),
                plain.find("</Definition>") - plain.find("<VariantProperties>"));
    withVariants->setAssociatedProduct_zorvantaProd(product(plain.c_str()));
    EXPECT_EQ(withVariants->xml(),
              "<Properties><Field fieldID=\"Cy_List_Price\"><![CDATA[1.234.5]]></Field>"
              "<Field fieldID=\"Group1Quantity\"><![CDATA[3]]></Field><Field "
              "fieldID=\"Comentario\"><![CDATA[Sí]]></Field></Properties><VariantProperties/>");

    withVariants->setNonCharateristicAttributes(values({}));
    EXPECT_EQ(withVariants->xml(), "<Properties/><VariantProperties/>");
    EXPECT_TRUE(logLines().empty());
    EXPECT_TRUE(erp->calls.empty());
}

TEST_F(PublishedProductTest, theLastErrorIsReadOnceFromThePendingRowOfThatMoment)
{
    publish({{"Cy_List_Price", "12,5"}});
    const std::string date = rows(Sql("SELECT FechaPublicado FROM WIPRODPEND"))[0];
    execute(Sql("UPDATE WIPRODPEND SET Error = -20, MsgErr = 'Precio fuera de rango'"));
    const auto failed = listed(line("1", "I", date), 3);
    EXPECT_EQ(failed->ErrorNumber(), -20);
    execute(Sql("UPDATE WIPRODPEND SET Error = 0"));
    EXPECT_EQ(failed->ErrorNumber(), -20) << "kept from the first reading";
    EXPECT_EQ(listed(line("1", "I", date), 3)->ErrorNumber(), 0);
    EXPECT_TRUE(logLines().empty());

    const std::tuple<const char *, std::string> rows[] = {
        {"another moment", "2026-01-01 00:00:00"},
        {"a row that never failed", date},
    };
    execute(Sql("UPDATE WIPRODPEND SET Error = NULL"));
    for (const auto &[what, when] : rows) {
        SCOPED_TRACE(what);
        restart();
        EXPECT_EQ(listed(line("1", "I", when), 3)->ErrorNumber(), 0);
        ASSERT_FALSE(loggedErrors().empty());
        EXPECT_THAT(loggedErrors().front(),
                    HasSubstr("(ZorvantaMinistore:SendPendingPublications:)"));
        EXPECT_FALSE(gAppRunning);
    }
    gAppRunning = true;
}
