// How rows become requests, before anything is written or sent.

#include "publication/CatalogBatchPlanner.h"

#include "SendPipelineTest.h"
#include "platform/core/RaisedError.h"

using ::testing::ElementsAre;

namespace {

const std::string kDeclaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";

std::string nonCharacteristic(const std::string &fields)
{
    return kDeclaration + "<AtributosNoCaracteristicos>" + fields + "</AtributosNoCaracteristicos>";
}

std::string characteristic(const std::string &fields)
{
    return kDeclaration + "<AtributosCaracteristicos>" + fields + "</AtributosCaracteristicos>";
}

struct MergeCase
{
    const char *situation;
    std::string nonCharacteristic;
    std::string characteristic;
    std::string taxes;
    std::string merged;
    /// The error line and the box, when the merge fails.
    std::string logged;
    std::string box;
};

dbPublication row(std::int16_t number, const char *status, const char *product,
                  const std::string &ownFields, const std::string &associationFields)
{
    dbPublication row;
    row.publicationId = number;
    row.dovelID = "E-3";
    row.status = status;
    row.zorvantaId = product;
    row.nonCharacteristicAttributes = ownFields;
    row.characteristicAttributes = associationFields;
    return row;
}

} // namespace

using CatalogBatchPlannerTest = SendPipelineTest;

TEST_F(CatalogBatchPlannerTest, mergingTheTwoAttributeTextsAndTheTaxes)
{
    const std::string a = field("A", "1"), b = field("B", "2"), c = field("C", "3"),
                      d = field("D", "4");
    const std::string bad = nonCharacteristic("<Properties>");
    const MergeCase cases[] = {
        {"own fields come before the association's in both lists, and variants come first",
         nonCharacteristic("<Properties>" + a + "</Properties><VariantProperties>" + b +
                           "</VariantProperties>"),
         characteristic("<Properties>" + c + "</Properties><VariantProperties>" + d +
                        "</VariantProperties>"),
         "<Taxes>" + kIva + "</Taxes>",
         "<VariantProperties>" + b + d + "</VariantProperties><Properties>" + a + c +
             "</Properties>",
         {},
         {}},
        {"taxes close the list as one CDATA field",
         nonCharacteristic("<Properties>" + a + "</Properties>"),
         characteristic(""),
         "<Taxes>" + kIva + "</Taxes>",
         "<Properties>" + a + taxConfig(kIva) + "</Properties>",
         {},
         {}},
        {"a bad text of the publication is reported and nothing is merged", bad, characteristic(""),
         "", "",
         "Error: -10501 (ZorvantaMinistore:merge ): XML de atributos no característicos mal "
         "construído " +
             bad,
         "Error: -10501: " + kGenericBox},
        {"a bad text of the association is reported quoting the publication's",
         nonCharacteristic(""), characteristic("<Properties>"), "", "",
         "Error: -10501 (ZorvantaMinistore:merge ): XML de atributos característicos mal "
         "construído " +
             nonCharacteristic(""),
         "Error: -10501: " + kGenericBox},
        {"no field and no tax leaves nothing to place, which is fatal", nonCharacteristic(""),
         characteristic(""), "", "",
         "Error: 91 (ZorvantaMinistore:merge Method): ", "Error: 91: " + kGenericBox},
    };
    for (const MergeCase &row : cases) {
        SCOPED_TRACE(row.situation);
        EXPECT_EQ(CatalogBatchPlanner::merge(row.nonCharacteristic, row.characteristic, row.taxes),
                  row.merged);
        if (row.logged.empty()) {
            EXPECT_TRUE(logged().empty());
        } else {
            ASSERT_EQ(logged().size(), 1u);
            EXPECT_EQ(logged()[0].substr(0, row.logged.size()), row.logged);
            EXPECT_EQ(boxes().at(0), row.box);
        }
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        gAppRunning = true;
    }
}

TEST_F(CatalogBatchPlannerTest, aWithdrawalStillPassesItsFieldsToTheNextBatch)
{
    const std::string brand =
        "<Properties>" + field("Marca", "Fortex") + "</Properties><VariantProperties/>";
    ZorvantaMinistore ministore;
    CatalogBatchPlanner planner(
        ministore, {row(1, "E", "ZP-1", {}, brand), row(2, "A", "ZP-2", price("3.00"), kNoFields)},
        1);

    const CatalogBatch first = planner.next();
    EXPECT_EQ(first.operations, 1);
    EXPECT_TRUE(first.publishRows.empty());
    const CatalogBatch second = planner.next();
    EXPECT_TRUE(planner.atEnd());
    const std::string header =
        "<CatalogOperation><SellerID>V1042</SellerID><ProductLicense>NUB-LIC-2026-0042"
        "</ProductLicense><StoreID></StoreID><MaxProducts>0</MaxProducts><Operations>";
    EXPECT_EQ(second.request, kDeclaration + header +
                                  operation(2, "Actualizar", "ZP-2",
                                            "<Properties>" + field("Cy_List_Price", "3.00") +
                                                field("Marca", "Fortex") + "</Properties>") +
                                  "</Operations></CatalogOperation>");
    EXPECT_EQ(second.wireText(), second.request.substr(kDeclaration.size()));
    EXPECT_TRUE(logged().empty());
}

TEST_F(CatalogBatchPlannerTest, aMarkupCharacterInAProductIdFailsTheRequestCheck)
{
    ZorvantaMinistore ministore;
    CatalogBatchPlanner planner(ministore, {row(9, "E", "ZP<9", {}, kNoFields)}, 5);
    try {
        planner.next();
        FAIL() << "the request was accepted";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), -10501);
        EXPECT_EQ(error.source(), "ZorvantaMinistore:SendPendingPublications ");
        EXPECT_EQ(error.description(),
                  "XML mal construído " + kDeclaration +
                      "<CatalogOperation><SellerID>V1042</SellerID><ProductLicense>"
                      "NUB-LIC-2026-0042</ProductLicense><StoreID></StoreID><MaxProducts>0"
                      "</MaxProducts><Operations><Operation PublicationID='9'><Operation>"
                      "Despublicar</Operation><ZorvantaID>ZP<9</ZorvantaID></Operation>"
                      "</Operations></CatalogOperation>");
    }
}
