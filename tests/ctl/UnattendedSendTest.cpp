#include "AsistentectlTest.h"
#include "publication/SendLock.h"

#include <filesystem>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// The marketplace already shows publications 2 and 3, which the queue updates and withdraws.
void alreadyPublished(std::string &data)
{
    const std::string user = "<User name=\"carmen\" password=\"andina2026\"/>";
    data.replace(data.find(user), user.size(),
                 user + "<Publication id=\"2\" product=\"ZP-2\"/>"
                        "<Publication id=\"3\" product=\"ZP-3\"/>");
}

} // namespace

class UnattendedSendTest : public AsistentectlTest {};

TEST_F(UnattendedSendTest, thePreviewShowsAndChangesNothingAndIsWhatTheNextSendTransmits)
{
    openMarketplace({}, 2, alreadyPublished);
    queueAllThreeOperations();
    const Texts before = tables();

    const Run preview = ctl("previsualizar");

    ASSERT_EQ(preview.status, 0) << preview.err;
    EXPECT_THAT(linesAfter(preview.out, "  "),
                ElementsAre("Publicar publicación 1, producto ERP E-1, producto ZP-1",
                            "Actualizar publicación 2, producto ERP E-2, producto ZP-2",
                            "  Cy_List_Price: 10.00 -> 12.50", HasSubstr("Texto: "),
                            "Despublicar publicación 3, producto ERP E-3, producto ZP-3",
                            HasSubstr("Texto: ")));
    EXPECT_EQ(tables(), before) << "a preview writes nothing, not even P";
    EXPECT_THAT(wire(), IsEmpty());
    EXPECT_THAT(marketplace("//Taxes/Store/Tax/@TaxID"), IsEmpty()) << "no taxes synchronised";

    const Run send = ctl("enviar");

    EXPECT_EQ(send.status, 0) << send.out << send.err;
    EXPECT_EQ(wire(), linesAfter(preview.out, "  Texto: "));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K"));
    EXPECT_THAT(pendings(), IsEmpty());
}

TEST_F(UnattendedSendTest, theReportOfAMixedRunCountsWhatTheTablesShow)
{
    openMarketplace("<Fault operation='9' publication='2' code='-8006' description='Sin cupo'/>"
                    "<Fault operation='9' publication='4' code='-8501' "
                    "description='Producto retirado del catálogo'/>",
                    10, alreadyPublished);
    queueAllThreeOperations();
    waiting(4, "E-3", "ZP-4", "L", "I", price("3.00"), 4);
    const Texts pendingBefore = pendings();

    const Run send = ctl("enviar");

    EXPECT_EQ(send.status, 1) << "a refusal and a retry are not all accepted\n" << send.err;
    // What the tables say happened to each of the four operations.
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K", "4|P"));
    EXPECT_THAT(pendings(), ElementsAre("2|A|1|-8006|Sin cupo"));
    const int accepted = 2;     // 1 confirmed, 3 withdrawn
    const int refused = 1;      // 4: its row gone, the publication stuck in P
    const int retried = 1;      // 2: NumInt grew
    const int stillPending = 1; // 2
    ASSERT_EQ(pendingBefore.size(), 4u);

    const Texts listed = lines(ctl("informes").out);
    ASSERT_EQ(listed.size(), 1u);
    const std::string json = ctl("informes " + listed[0]).out;
    EXPECT_EQ(json, file("informes/" + listed[0] + ".json"));
    EXPECT_THAT(json, HasSubstr("\"enviadas\": 4, \"aceptadas\": " + std::to_string(accepted) +
                                ", \"rechazadas\": " + std::to_string(refused) +
                                ", \"reintentos\": " + std::to_string(retried) +
                                ", \"sinCambios\": 0, \"sinRespuesta\": 0, \"pendientes\": " +
                                std::to_string(stillPending)));
    EXPECT_THAT(json, HasSubstr("{\"publicacion\": \"2\", \"operacion\": \"Actualizar\", "
                                "\"resultado\": \"reintento\", \"codigo\": \"-8006\", "
                                "\"descripcion\": \"Sin cupo\", \"intentos\": 1}"));
    EXPECT_THAT(json, HasSubstr("{\"publicacion\": \"4\", \"operacion\": \"Publicar\", "
                                "\"resultado\": \"rechazada\", \"codigo\": \"-8501\", "
                                "\"descripcion\": \"Producto retirado del catálogo\""));
    EXPECT_THAT(file("informes/" + listed[0] + ".html"),
                HasSubstr("<td>Producto retirado del catálogo</td>"));
    EXPECT_THAT(send.out, HasSubstr("Minitienda 100 (Andina Hogar): 4 enviadas, 2 aceptadas, "
                                    "1 rechazadas, 1 reintentos, 0 sin respuesta, 1 pendientes"));
}

TEST_F(UnattendedSendTest, aSecondSendOnTheSameDatabaseSaysSoAndTouchesNothing)
{
    openMarketplace({}, 5, alreadyPublished);
    queueAllThreeOperations();
    const Texts before = tables();
    SendLock running;
    std::string why;
    ASSERT_TRUE(running.tryLock(SendLock::fileFor("AsistenteDemo"), why)) << why;

    const Run second = ctl("enviar");

    EXPECT_EQ(second.status, 3);
    EXPECT_THAT(second.err, HasSubstr("Otro envío está en curso sobre esta base de datos"));
    EXPECT_THAT(file("bitacora.log"), HasSubstr("Otro envío está en curso"));
    EXPECT_EQ(tables(), before);
    EXPECT_THAT(wire(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(database->dir() / "informes"));
}

TEST_F(UnattendedSendTest, aMarketplaceThatDoesNotAnswerIsALinkFailure)
{
    openMarketplace({}, 5, alreadyPublished);
    queueAllThreeOperations();
    const Texts before = tables();
    setenv("ASISTENTE_MARKETPLACE_URL", "http://127.0.0.1:9", 1);

    for (const char *command : {"enviar", "previsualizar"}) {
        const Run run = ctl(command);
        EXPECT_EQ(run.status, 2) << command;
        EXPECT_THAT(run.err, HasSubstr("Ocurrió un error grave de conexión")) << command;
    }
    EXPECT_EQ(tables(), before);
    // The test's own session closes on the marketplace that opened it.
    setenv("ASISTENTE_MARKETPLACE_URL", sim->url().c_str(), 1);
}
