#include "AsistentectlTest.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class DriftCheckTest : public AsistentectlTest
{
protected:
    /// Publication 1 of association 1 (E-1, ZP-1) in store 100, linked to DV-01.
    void stuckPublication(const char *state)
    {
        link("100", "DV-01");
        associate(1, "E-1", "ZP-1");
        publication(1, 1, "100", state, price("10.00"));
    }
    /// WIPRODPEND with what the re-queue writes: store, association, attributes, tries, error.
    Texts pendingRows()
    {
        return database->rows(Sql("SELECT IdPrdPublicado, Estado, IdTienda, IdPrdAsociado, "
                                  "Atributos, NumInt, Error FROM WIPRODPEND "
                                  "ORDER BY IdPrdPublicado, Estado"));
    }
};

TEST_F(DriftCheckTest, tidyTablesShowNoDrift)
{
    stuckPublication("K");
    pending(1, 1, "100", "A", price("11.00"), 1);

    const Run run = ctl("deriva");

    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, StartsWith("Sin desvíos"));
}

TEST_F(DriftCheckTest, eachAnomalyOfTheTablesIsFoundUnderItsStoreAndNothingIsWritten)
{
    stuckPublication("P"); // a refused Publicar left it so
    // An update whose association was removed afterwards.
    publication(2, 9, "100", "K");
    pending(2, 9, "100", "A", price("12.00"), 1);
    // A withdrawal in store 200, which no deposit feeds any more.
    associate(3, "E-3", "ZP-3");
    publication(3, 3, "200", "K");
    pending(3, 3, "200", "E", {}, 2);
    // An update and a withdrawal of the same publication.
    associate(4, "E-2", "ZP-4");
    publication(4, 4, "100", "K");
    pending(4, 4, "100", "A", price("13.00"), 3);
    pending(4, 4, "100", "E", {}, 4);
    const Texts before = tables();

    const Run run = ctl("deriva");

    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_THAT(lines(run.out),
                ElementsAre("Minitienda 100:",
                            "  Publicación 1 en proceso (P) sin nada pendiente: la feria la "
                            "rechazó o agotó sus reintentos y ningún envío volverá a mandarla. "
                            "Para reintentarla: asistentectl deriva --reencolar 1",
                            "  Actualizar de la publicación 2 pendiente sin su asociación 9, que "
                            "fue eliminada: el envío no la manda ni la cuenta, y quedará "
                            "pendiente para siempre. Despublique la publicación o vuelva a "
                            "asociar el producto.",
                            StartsWith("  Publicación 4 con una modificación y una "
                                       "despublicación pendientes a la vez"),
                            "Minitienda 200:",
                            StartsWith("  Despublicar de la publicación 3 pendiente en una "
                                       "minitienda que ya no está asociada a ningún depósito "
                                       "virtual")));
    EXPECT_EQ(tables(), before);
}

TEST_F(DriftCheckTest, aRefusedPublicationIsFoundRequeuedAndTakenByTheNextSend)
{
    openMarketplace("<Fault operation='9' publication='1' code='-8501' "
                    "description='Producto retirado del catálogo'/>");
    link("100", "DV-01");
    waiting(1, "E-1", "ZP-1", "L", "I", price("10.00"), 1);
    database->execute(Sql("UPDATE WIPRODPUBL SET Atributos = '<Properties><Field "
                          "fieldID=\"Cy_List_Price\">10.00</Field></Properties>"
                          "<VariantProperties/>'"));
    ASSERT_EQ(ctl("enviar").status, 1);
    ASSERT_THAT(publications(), ElementsAre("1|P"));
    ASSERT_THAT(pendings(), IsEmpty());
    EXPECT_THAT(ctl("deriva").out, HasSubstr("Publicación 1 en proceso (P) sin nada pendiente"));

    const Run requeue = ctl("deriva --reencolar 1");

    EXPECT_EQ(requeue.status, 0) << requeue.err;
    EXPECT_EQ(requeue.out, "Publicación 1 reencolada: el próximo envío de la minitienda 100 la "
                           "publicará\n");
    EXPECT_THAT(pendingRows(),
                ElementsAre("1|I|100|1|<Properties><Field fieldID=\"Cy_List_Price"
                            "\">10.00</Field></Properties><VariantProperties/>|0|0"));
    EXPECT_THAT(publications(), ElementsAre("1|P"));
    EXPECT_EQ(ctl("deriva").status, 0);

    // The marketplace takes the product back in its catalogue.
    closeMarketplace();
    openMarketplace();
    const Run send = ctl("enviar");

    EXPECT_EQ(send.status, 0) << send.out << send.err;
    EXPECT_THAT(wire(), ElementsAre(HasSubstr("<Operation PublicationID='1'><Operation>Publicar"
                                              "</Operation><ZorvantaID>ZP-1</ZorvantaID>")));
    EXPECT_THAT(publications(), ElementsAre("1|K"));
    EXPECT_THAT(pendings(), IsEmpty());
}

TEST_F(DriftCheckTest, onlyAStuckPublicationIsRequeued)
{
    struct Case
    {
        const char *name;
        const char *state;
        bool somethingPending;
        bool associationRemoved;
        const char *publication;
        const char *error;
    };
    const Case cases[] = {
        {"a publication that does not exist", "P", false, false, "7", "No existe la publicación 7"},
        {"a confirmed publication", "K", false, false, "1",
         "La publicación 1 está en estado K: sólo se reencola una publicación en P"},
        {"a publication still waiting to go", "P", true, false, "1",
         "La publicación 1 ya tiene operaciones pendientes"},
        {"a publication whose association was removed", "P", false, true, "1",
         "La asociación de la publicación 1 fue eliminada"},
        {"a number that is not one", "P", false, false, "1x",
         "El número de publicación no es válido: 1x"},
    };
    for (const Case &row : cases) {
        database->execute(Sql("DELETE FROM WIPRODPEND"));
        database->execute(Sql("DELETE FROM WIPRODPUBL"));
        database->execute(Sql("DELETE FROM WIPRODASOC"));
        database->execute(Sql("DELETE FROM WITIENDAS"));
        stuckPublication(row.state);
        if (row.somethingPending)
            pending(1, 1, "100", "I", price("10.00"), 1);
        if (row.associationRemoved)
            database->execute(Sql("DELETE FROM WIPRODASOC"));
        const Texts before = tables();

        const Run run = ctl(std::string("deriva --reencolar ") + row.publication);

        EXPECT_EQ(run.status, 1) << row.name;
        EXPECT_THAT(run.err, HasSubstr(row.error)) << row.name;
        EXPECT_EQ(tables(), before) << row.name;
    }
}
