// Every way a send can fail ends in the system's own message, with every earlier operation
// committed and nothing half-applied.

#include "SendPipelineTest.h"

#include <functional>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::StartsWith;

namespace {

struct FailureCase
{
    const char *situation;
    const char *faults;
    /// Rewrites the marketplace's data, when the case needs it.
    std::function<void(std::string &)> data;
    /// The log's error line starts so.
    std::string logged;
    Texts boxes;
    Texts publications;
    Texts pendings;
};

const std::string kDatabaseBox =
    "Error de base de datos: Verifique que la base de datos esté ejecutándose.";
const std::string kFatalBox = "Error Fatal: ";
const std::string kClosing = "La aplicación será cerrada";
const std::string kGeneric = "Error de la aplicación. Contacte al administrador del sistema";
const std::string kCall =
    "Error llamando a QDX.dll en EjecutarOperacion QDX_Operaciones_Catalogo: ";

// Both rows were handed to the marketplace and no answer was applied: they go again next time.
const Texts kBothProcessing = {"1|P", "2|P"};
const Texts kBothPending = {"1|I|0|0|", "2|I|0|0|"};

} // namespace

class SendFailureTest : public SendPipelineTest
{
protected:
    void arrange()
    {
        waiting(1, "E-1", "ZP-1", "L", "I", price("1.00"), 1);
        waiting(2, "E-3", "ZP-2", "L", "I", price("2.00"), 2);
    }
    /// Ready for the next case: nothing logged or shown, the application running, no rows.
    void restart()
    {
        closeMarketplace();
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        gAppRunning = true;
        database->execute(Sql("DELETE FROM WIPRODPEND"));
        database->execute(Sql("DELETE FROM WIPRODPUBL"));
        database->execute(Sql("DELETE FROM WIPRODASOC"));
    }
};

TEST_F(SendFailureTest, eachFailureEndsInTheSystemsMessageWithNothingHalfApplied)
{
    const std::vector<FailureCase> cases = {
        {"a reply that is not XML",
         "<Fault operation='9' effect='malformed'/>",
         {},
         "Error: -10502 (ZorvantaMinistore:SendPendingPublications ): XML de retorno de QDX.dll "
         "en EjecutarOperacion QDX_Operaciones_Catalogo está mal construído <CatalogOperation>",
         {"Error: -10502: " + kGeneric},
         kBothProcessing,
         kBothPending},
        {"a reply without Operations",
         "<Fault operation='9' effect='noOperations'/>",
         {},
         "Error: 91 (Seller:SendPendingPublications Method): ",
         {"Error: 91: " + kGeneric, kClosing},
         kBothProcessing,
         kBothPending},
        {"an empty DESCRIPTION after an applied operation",
         "<Fault operation='9' publication='2' effect='emptyDescription'/>",
         {},
         "Error: -10502 (ZorvantaMinistore:SendPendingPublications): El XML retornado por QDX.dll "
         "en EjecutarOperacion QDX_Operaciones_Catalogo no tiene valor para DESCRIPTION : "
         "<CatalogOperation><RESULT>",
         {"Error: -10502: " + kGeneric},
         {"1|K", "2|P"},
         {"2|I|0|0|"}},
        {"a description with an apostrophe",
         "<Fault operation='9' publication='2' code='-8006' description=\"Sin 'cupo'\"/>",
         {},
         "Error: -11000 (ZorvantaMinistore:SendPendingPublications:): Error en la base de datos ",
         {kDatabaseBox, kClosing},
         {"1|K", "2|P"},
         {"2|I|0|0|"}},
        {"a connector code on every try",
         "<Fault operation='9' code='-2039'/>",
         {},
         "Error: -2039 (ZorvantaMinistore:SendPendingPublications): " + kCall +
             "-2039:No se recibió el mensaje con la secuencia debida",
         {"Error: -2039: " + kGeneric, kClosing},
         kBothProcessing,
         kBothPending},
        {"a session lost again after reopening",
         "<Fault operation='9' effect='loseSession'/>",
         {},
         "Error: -2005 (ZorvantaMinistore:SendPendingPublications): " + kCall +
             "-2005:Error al tratar de abrir la sesión",
         {"Error: -2005: " + kGeneric, kClosing},
         kBothProcessing,
         kBothPending},
        {"no batch limit for the plan",
         "",
         [](std::string &data) {
             data.replace(data.find("ProductID=\"300\""), 15, "ProductID=\"310\"");
         },
         "Error: 5 (Seller:SendPendingPublications Method): ",
         {"Error: 5: " + kGeneric, kClosing},
         {"1|L", "2|L"},
         kBothPending},
    };
    for (const FailureCase &row : cases) {
        SCOPED_TRACE(row.situation);
        openMarketplace(row.faults, 5, row.data);
        arrange();

        send();

        ASSERT_FALSE(logged().empty());
        EXPECT_THAT(logged().back(), StartsWith(row.logged));
        EXPECT_THAT(boxes(), ElementsAreArray(row.boxes));
        EXPECT_THAT(publications(), ElementsAreArray(row.publications));
        EXPECT_THAT(pendings(), ElementsAreArray(row.pendings));
        // Taxes go first, whatever happens to the batch.
        EXPECT_THAT(marketplace("//Taxes/Store[@StoreID='100']/Tax/@TaxID"),
                    ElementsAre("IVA", "ISE", "ECO"));
        restart();
    }
}

TEST_F(SendFailureTest, aSessionLostOnceIsReopenedAndTheBatchGoesThrough)
{
    openMarketplace("<Fault operation='9' call='1' effect='loseSession'/>");
    arrange();

    send();

    EXPECT_EQ(wire().size(), 2u) << "the same request once more, in the new session";
    EXPECT_EQ(wire().at(0), wire().at(1));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K"));
    EXPECT_TRUE(pendings().empty());
    EXPECT_TRUE(ui->boxes().empty());
}
