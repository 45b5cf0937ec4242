#include "AsistentectlTest.h"

#include <functional>

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class DoctorTest : public AsistentectlTest
{
};

TEST_F(DoctorTest, everyLinkHoldsOnTheSandbox)
{
    openMarketplace();
    setenv("LC_ALL", "es_AR.UTF-8", 1);
    const Run run = ctl("diagnostico");
    unsetenv("LC_ALL");

    EXPECT_EQ(run.status, 0) << run.out << run.err;
    const Texts found = lines(run.out);
    EXPECT_THAT(found, Each(StartsWith("[ok] ")));
    EXPECT_THAT(
        found,
        ElementsAre(StartsWith("[ok] Descripción del servicio de la feria http"),
                    StartsWith("[ok] Puerto StoreSoapPort en http"),
                    StartsWith("[ok] Puerto CatalogOperationsSoapPort en http"),
                    StartsWith("[ok] Puerto CatalogInfoSoapPort en http"),
                    HasSubstr("con sus 7 funciones"), HasSubstr("con sus 3 funciones"),
                    "[ok] Datos del cliente en el ERP: vendedor V1042",
                    StartsWith("[ok] Coordenadas de la base de datos en el ERP: "
                               "base AsistenteDemo"),
                    "[ok] Base de datos AsistenteDemo", StartsWith("[ok] Tabla WITIENDAS"),
                    StartsWith("[ok] Tabla WIPRODASOC"), StartsWith("[ok] Tabla WIPRODPUBL"),
                    StartsWith("[ok] Tabla WIPRODPEND"),
                    "[ok] Valor inicial de WIPRODPEND.NumInt 0", StartsWith("[ok] Bitácora "),
                    "[ok] Separador decimal de la configuración regional es_AR: "
                    "\",\""));
    EXPECT_THAT(database->rows(Sql("SELECT COUNT(*) FROM WIPRODPEND")), ElementsAre("0"))
        << "the check of NumInt leaves nothing behind";
}

TEST_F(DoctorTest, eachBrokenLinkIsToldWithWhatToDo)
{
    struct Case
    {
        const char *name;
        std::function<void()> breakIt;
        Texts failing; // the starts of the lines that must fail, in order
        const char *remedy;
    };
    const Case cases[] = {
        {"the marketplace is down",
         [] { setenv("ASISTENTE_MARKETPLACE_URL", "http://127.0.0.1:9", 1); },
         {"Descripción del servicio de la feria http://127.0.0.1:9/zvtservices/zvtsorvek.wsdl: "
          "no responde"},
         "Verifique que la feria esté en línea"},
        {"the ERP library's path is wrong",
         [] { setenv("ASISTENTE_ERP_LIBRARY", "/nada/libzrvndll.so", 1); },
         {"Biblioteca del ERP /nada/libzrvndll.so", "Datos del cliente en el ERP",
          "Coordenadas de la base de datos en el ERP", "Base de datos del vendedor"},
         "indique su ruta completa en ASISTENTE_ERP_LIBRARY"},
        {"the back-office library is another one",
         [] { setenv("ASISTENTE_BACKOFFICE_LIBRARY", ZRVNDLL_PATH, 1); },
         {"Biblioteca de la trastienda " ZRVNDLL_PATH
          ": le faltan IniciarSesionW, CerrarSesionW, EjecutarOperacionW"},
         "Instale la versión de la biblioteca"},
        {"a table is missing",
         [this] { database->execute(Sql("DROP TABLE WIPRODPUBL")); },
         {"Tabla WIPRODPUBL"},
         "Créela o complete sus columnas"},
        {"a column is missing",
         [this] { database->execute(Sql("ALTER TABLE WITIENDAS DROP COLUMN Descrip")); },
         {"Tabla WITIENDAS"},
         "IdTienda, Descrip, IDDepoVDOVEL"},
        {"NumInt has no default",
         [this] {
             database->execute(Sql("DROP TABLE WIPRODPEND"));
             database->execute(Sql("CREATE TABLE WIPRODPEND (IdPrdPublicado INT, IdPrdAsociado "
                                   "INT, IdTienda TEXT, Estado TEXT, Atributos TEXT, "
                                   "FechaPublicado TEXT, NumInt INT, MsgErr TEXT, Error INT)"));
         },
         {"Valor inicial de WIPRODPEND.NumInt: no es 0"},
         "Defina DEFAULT 0"},
        {"the database does not exist",
         [this] { std::filesystem::remove(database->dir() / "AsistenteDemo.sqlite3"); },
         {"Base de datos AsistenteDemo"},
         "asistente-db init"},
    };
    for (const Case &row : cases) {
        // One sandbox at a time: each unsets the data folder when it goes.
        database.reset();
        database = std::make_unique<SellerDatabaseSandbox>();
        openMarketplace();
        row.breakIt();

        const Run run = ctl("diagnostico");

        EXPECT_EQ(run.status, 2) << row.name;
        EXPECT_THAT(run.err, Not(HasSubstr("La aplicación será cerrada"))) << row.name;
        const Texts failed = linesAfter(run.out, "[falla] ");
        ASSERT_EQ(failed.size(), row.failing.size()) << row.name << "\n" << run.out;
        for (std::size_t i = 0; i < failed.size(); ++i)
            EXPECT_THAT(failed[i], StartsWith(row.failing[i])) << row.name;
        EXPECT_THAT(run.out, HasSubstr(row.remedy)) << row.name;

        setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
        closeMarketplace();
    }
}
