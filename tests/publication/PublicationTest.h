#pragma once

#include "AssociationTest.h"
#include "catalogue/ProductLine.h"
#include "publication/PublishedProduct.h"
#include "publication/SellerLists.h"
#include "stores/ZorvantaMinistore.h"

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

/// The ERP of the association tests, whose database is the one the test chose.
class PublicationErp : public DetailErp
{
public:
    std::int32_t ObtenerDataBase(char *server, char *database, char *user, char *password) override
    {
        const std::int32_t code = FakeErp::ObtenerDataBase(server, database, user, password);
        std::strcpy(database, databaseName.c_str());
        return code;
    }

    std::string databaseName = "AsistenteDemo";
};

/// Publications of association 7 (the ERP's shirt ERP-0495 bound to the marketplace's shirt,
/// which has the variant properties Color and Talla) in store 100. The shirt's
/// non-characteristic properties are a price, a quantity and a free text. The seller's database
/// is the embedded engine's, or with useOdbc() the same tables behind the ODBC driver.
class PublicationTest : public ShirtTest<PublicationErp>
{
protected:
    void SetUp() override
    {
        ShirtTest::SetUp();
        registerSellerListLines();
        shirt = product(kShirt);
        store = ministore("100");
    }
    void TearDown() override
    {
        unsetenv("ASISTENTE_SQL_DRIVER");
        ShirtTest::TearDown();
    }

    /// Puts WIPRODPUBL and WIPRODPEND behind the ODBC driver of SQLite, made as a server's
    /// schema makes them. False when the driver is not installed.
    bool useOdbc()
    {
        if (!std::filesystem::exists(kOdbcDriver))
            return false;
        setenv("ASISTENTE_SQL_DRIVER", kOdbcDriver, 1);
        erp->databaseName = (database->dir() / "servidor.db").string();
        gSeller.reset();
        Connection connection;
        connection.open(gSeller->connectionString(), 15);
        connection.execute(Sql("CREATE TABLE WIPRODPUBL (IdPrdPublicado INTEGER PRIMARY KEY "
                               "AUTOINCREMENT, IdPrdAsociado INT NOT NULL, IdTienda VARCHAR(50) "
                               "NOT NULL, Estado CHAR(1) NOT NULL, Atributos TEXT, "
                               "FechaPublicado DATETIME)"));
        connection.execute(Sql("CREATE TABLE WIPRODPEND (IdPrdPublicado INT NOT NULL, "
                               "IdPrdAsociado INT NOT NULL, IdTienda VARCHAR(50) NOT NULL, "
                               "Estado CHAR(1) NOT NULL, Atributos TEXT, FechaPublicado "
                               "DATETIME, NumInt INT NOT NULL DEFAULT 0, MsgErr TEXT, Error "
                               "SMALLINT, PRIMARY KEY (IdPrdPublicado, Estado))"));
        return true;
    }

    /// The rows of a query on the seller's database, each as its fields joined with '|'.
    Texts rows(const Sql &query)
    {
        Connection connection;
        connection.open(gSeller->connectionString(), 15);
        Recordset found = connection.execute(query);
        Texts rows;
        for (; !found.eof(); found.moveNext()) {
            std::string row;
            for (int field = 0; field < found.fieldCount(); ++field)
                row += (field == 0 ? "" : "|") + found.fieldText(field);
            rows.push_back(row);
        }
        return rows;
    }
    void execute(const Sql &statement)
    {
        Connection connection;
        connection.open(gSeller->connectionString(), 15);
        connection.execute(statement);
    }
    /// Every publication as "number|association|store|state|attributes".
    Texts publications()
    {
        return rows(Sql("SELECT IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, Atributos FROM "
                        "WIPRODPUBL ORDER BY IdPrdPublicado"));
    }
    /// Every pending operation as "number|association|store|operation|attributes|attempts".
    Texts pending()
    {
        return rows(Sql("SELECT IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, Atributos, "
                        "NumInt FROM WIPRODPEND ORDER BY IdPrdPublicado, Estado"));
    }

    static std::shared_ptr<ZorvantaMinistore> ministore(const std::string &id)
    {
        XmlDocument reply;
        EXPECT_TRUE(reply.loadXML("<Store><StoreID>" + id +
                                  "</StoreID><Name>Tienda</Name><NumberOfProducts>0"
                                  "</NumberOfProducts><MaxProducts>10</MaxProducts><ProductID>300"
                                  "</ProductID><Status>A</Status></Store>"));
        auto made = std::make_shared<ZorvantaMinistore>();
        made->setXml(reply.documentElement(), reply.documentElement());
        return made;
    }
    /// Association 7 as the associated list gives it, bound to the shirt.
    std::shared_ptr<AssociatedProduct> association()
    {
        XmlDocument line;
        EXPECT_TRUE(line.loadXML("<Producto><CodigoDovel>ERP-0495</CodigoDovel><Descripcion>"
                                 "Camisa de algodón</Descripcion><CodigoAsociacion>7"
                                 "</CodigoAsociacion><CodigoZorvanta>ZP-00191</CodigoZorvanta>"
                                 "</Producto>"));
        auto made = std::make_shared<AssociatedProduct>();
        made->setXml(line.documentElement());
        made->setZorvantaProd(shirt);
        return made;
    }
    /// Publishes the shirt with these values, as the confirmation page does; the new number.
    std::string publish(const Pairs &pairs, std::shared_ptr<ZorvantaMinistore> in = nullptr)
    {
        PublishedProduct publication;
        publication.setAssociatedProd(association());
        publication.setMinistore(in ? in : store);
        publication.setNonCharateristicAttributes(values(pairs));
        publication.CreatePublication();
        return publication.publicationId();
    }
    /// A `Producto` line of the published (2) or pending (3) list in store 100.
    static std::string line(const std::string &number, const std::string &state = "K",
                            const std::string &date = "2026-02-01 10:00:00")
    {
        return "<Producto><CodigoDovel>ERP-0495</CodigoDovel><Descripcion>Camisa de algodón"
               "</Descripcion><CodigoAsociacion>7</CodigoAsociacion><CodigoPublicacion>" +
               number +
               "</CodigoPublicacion><CodigoZorvanta>ZP-00191</CodigoZorvanta><StoreID>"
               "100</StoreID><Estado>" +
               state + "</Estado><FechaPublicacion>" + date + "</FechaPublicacion></Producto>";
    }
    /// The line the list of `type` makes of `text`, bound to the shirt.
    std::shared_ptr<PublishedProduct> listed(const std::string &text, std::int16_t type = 2)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML("<BusquedaProductosIndividual><Productos>" + text +
                                     "</Productos></BusquedaProductosIndividual>"));
        const auto made = std::dynamic_pointer_cast<PublishedProduct>(ProductLine::make(
            type, document.documentElement().selectNodes("//Producto").item(0), store));
        if (made)
            made->setAssociatedProduct_zorvantaProd(shirt);
        return made;
    }
    /// Publication `number` as the published list gives it, with the values a page set.
    std::shared_ptr<PublishedProduct> listedWith(const std::string &number, const Pairs &pairs)
    {
        auto made = listed(line(number));
        made->setNonCharateristicAttributes(values(pairs));
        return made;
    }
    /// What the send run does when it hands the publication to the marketplace, or when the
    /// marketplace accepts it.
    void sendRunSets(const std::string &number, const char *state)
    {
        execute(Sql() << "UPDATE WIPRODPUBL SET Estado = '" << sqlText(state)
                      << "' WHERE IdPrdPublicado = " << sqlNumber(number));
        if (std::string(state) == "K")
            execute(Sql() << "DELETE FROM WIPRODPEND WHERE IdPrdPublicado = " << sqlNumber(number)
                          << " AND Estado = 'I'");
    }

    static constexpr const char *kOdbcDriver = "/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so";
    static constexpr const char *kShirt =
        "<ProductDefinition><PropertiesDefinition>"
        "<Property name='Marca' id='Marca' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Color' id='Color' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Talla' id='Talla' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Precio de lista' id='Cy_List_Price' dataType='Currency' required='yes' "
        "readOnly='no' type='NC'/>"
        "<Property name='Cantidad grupo 1' id='Group1Quantity' dataType='Integer' required='no' "
        "readOnly='no' type='NC'/>"
        "<Property name='Comentario' id='Comentario' dataType='String' required='no' "
        "readOnly='no' type='NC'/>"
        "</PropertiesDefinition><Definition name='pdRopa'>"
        "<Properties><Property id='Marca'/><Property id='Cy_List_Price'/>"
        "<Property id='Group1Quantity'/><Property id='Comentario'/></Properties>"
        "<VariantProperties><Property id='Color'/><Property id='Talla'/></VariantProperties>"
        "</Definition></ProductDefinition>";

    std::shared_ptr<ZorvantaMinistore> store;
};
