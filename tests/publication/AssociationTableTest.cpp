// Associations written to and removed from WIPRODASOC, in the embedded seller's database.

#include "AssociationTest.h"

#include <gmock/gmock.h>
#include <tuple>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string kRedM =
    "<Properties/><VariantProperties><Field fieldID=\"Color\"><![CDATA[Rojo]]>"
    "</Field><Field fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>";
const std::string kDuplicate =
    "Error: -10000: Existe una asociación con igual identificador dovel, identificador Zorvanta "
    "y atributos contenidos en la asociación previa";
const std::string kDatabaseBox =
    "Error de base de datos: Verifique que la base de datos esté ejecutándose.";

class AssociationTableTest : public AssociationTest
{
protected:
    /// Every association, as "id|ERP product|marketplace product|attributes".
    Texts associations()
    {
        return database->rows(Sql("SELECT IdPrdAsociado, IdPrdDovel, IdPrdZorvanta, Atributos "
                                  "FROM WIPRODASOC ORDER BY IdPrdAsociado"));
    }
    void storeRow(const std::string &id, const std::string &attributes)
    {
        database->execute(Sql() << "INSERT INTO WIPRODASOC VALUES (" << sqlNumber(id)
                                << ", 'ERP-0001', 'ZP-00191', '" << sqlText(attributes)
                                << "', '2026-01-10 09:00:00')");
    }
    /// Association `id` of ERP-0001 as the associated list gives it.
    static std::shared_ptr<AssociatedProduct> listedAssociation(const std::string &id)
    {
        XmlDocument line;
        EXPECT_TRUE(line.loadXML("<Producto><CodigoDovel>ERP-0001</CodigoDovel><Descripcion/>"
                                 "<CodigoAsociacion>" +
                                 id +
                                 "</CodigoAsociacion><CodigoZorvanta>ZP-00191"
                                 "</CodigoZorvanta></Producto>"));
        auto listed = std::make_shared<AssociatedProduct>();
        listed->setXml(line.documentElement());
        return listed;
    }
};

} // namespace

TEST_F(AssociationTableTest, aNewAssociationIsOneRowWithTheFixedValuesBeforeTheVariantOnes)
{
    const auto shirt = association({{"Color", "Rojo"}, {"Peso", "12,5"}, {"Talla", "M"}});
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    shirt->CreateAssociation();
    const auto plain = association({}, "ERP-0002");
    plain->CreateAssociation();

    EXPECT_THAT(associations(),
                ElementsAre("1|ERP-0001|ZP-00191|<Properties><Field fieldID=\"Peso\"><![CDATA["
                            "12.5]]></Field></Properties>"
                            "<VariantProperties><Field fieldID=\"Color\"><![CDATA[Rojo]]></Field>"
                            "<Field fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>",
                            "2|ERP-0002|ZP-00191|<Properties/><VariantProperties/>"));
    EXPECT_EQ(shirt->associationId(), "1");
    EXPECT_EQ(plain->associationId(), "2");
    const QDateTime written = QDateTime::fromString(
        QString::fromStdString(database->rows(Sql("SELECT FechaAsociado FROM WIPRODASOC"))[0]),
        "yyyy-MM-dd HH:mm:ss");
    EXPECT_TRUE(written >= before && written <= QDateTime::currentDateTime()) << "made now";
    EXPECT_TRUE(ui->boxes().empty());
    EXPECT_TRUE(erp->calls.empty()) << "a new association needs no detail";
}

TEST_F(AssociationTableTest, anAssociationContainedInAStoredOneIsRefusedAndWritesNothing)
{
    const std::tuple<const char *, std::string, Pairs, bool> rows[] = {
        {"the same choice again", kRedM, {{"Color", "Rojo"}, {"Talla", "M"}}, true},
        {"more values than the stored ones",
         "<Properties/><VariantProperties><Field fieldID="
         "\"Color\"><![CDATA[Rojo]]></Field>"
         "</VariantProperties>",
         {{"Color", "Rojo"}, {"Talla", "M"}},
         true},
        {"both without values", "<Properties/><VariantProperties/>", {}, true},
        {"another size", kRedM, {{"Color", "Rojo"}, {"Talla", "L"}}, false},
    };
    for (const auto &[what, attributes, chosen, refused] : rows) {
        SCOPED_TRACE(what);
        database->execute(Sql("DELETE FROM WIPRODASOC"));
        ui->clearBoxes();
        storeRow("5", attributes);
        association(chosen)->CreateAssociation();
        EXPECT_EQ(associations().size(), refused ? 1u : 2u);
        EXPECT_EQ(ui->boxTexts(), refused ? Texts{kDuplicate} : Texts{});
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(AssociationTableTest, aStoredRowOfAnotherProductIsNoDuplicate)
{
    storeRow("5", "<Properties/><VariantProperties/>");
    database->execute(Sql("UPDATE WIPRODASOC SET IdPrdZorvanta = 'ZP-00192'"));
    association({})->CreateAssociation();
    association({}, "ERP-0002")->CreateAssociation();
    EXPECT_EQ(associations().size(), 3u);
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(AssociationTableTest, aStoredRowThatIsNoXmlRefusesTheNewAssociation)
{
    storeRow("5", "<Properties><VariantProperties/>");
    association({{"Color", "Rojo"}})->CreateAssociation();
    EXPECT_EQ(associations().size(), 1u);
    EXPECT_EQ(loggedErrors(),
              Texts{"Error: -10501 (AssociatedProduct:CreateAssociation ): El XML construído para "
                    "los atributos característicos está mal construido : <?xml version='1.0' "
                    "encoding='ISO-8859-1'?> <AtributosCaracteristicos><Properties>"
                    "<VariantProperties/></AtributosCaracteristicos>"});
    EXPECT_TRUE(gAppRunning);
}

TEST_F(AssociationTableTest, anApostropheInAValueFailsAsTheDatabaseAndWritesNothing)
{
    association({{"Color", "Rojo"}, {"Talla", "O'Neill"}})->CreateAssociation();
    EXPECT_TRUE(associations().empty());
    ASSERT_FALSE(loggedErrors().empty());
    EXPECT_THAT(loggedErrors().front(),
                HasSubstr("Error: -11000 (AssociatedProduct:CreateAssociation:): Error en la base "
                          "de datos "));
    EXPECT_EQ(ui->boxTexts().front(), kDatabaseBox);
    EXPECT_FALSE(gAppRunning) << "a database failure closes the application";
}

TEST_F(AssociationTableTest, removalWaitsUntilNoPublicationOfTheAssociationIsLeft)
{
    storeRow("5", kRedM);
    storeRow("6", kRedM);
    const auto listed = listedAssociation("5");
    for (const char *state : {"L", "P", "K"}) {
        SCOPED_TRACE(state);
        ui->clearBoxes();
        database->execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado, "
                                   "Atributos, FechaPublicado) VALUES (5, '100', '"
                                << sqlText(state) << "', '', '2026-02-01 10:00:00')");
        listed->RemoveAssociation();
        EXPECT_EQ(associations().size(), 2u);
        EXPECT_EQ(ui->boxTexts(), Texts{"Error: -10001: No se puede remover la asociación porque "
                                        "existen productos publicados con esa asociación"});
        database->execute(Sql("DELETE FROM WIPRODPUBL"));
        if (std::string(state) == "K") {
            listed->RemoveAssociation();
            EXPECT_THAT(associations(), ElementsAre(HasSubstr("6|ERP-0001")));
        }
    }
    EXPECT_TRUE(gAppRunning);
}

TEST_F(AssociationTableTest, aDatabaseFailureIsFatalUnderTheProceduresName)
{
    storeRow("5", kRedM);
    const auto removed = listedAssociation("5");
    const std::pair<std::function<void()>, const char *> calls[] = {
        {[&] {
             association({{"Color", "Azul"}})->CreateAssociation();
         },
         "(AssociatedProduct:CreateAssociation:)"},
        {[&] { removed->RemoveAssociation(); }, "(AssociatedProduct:RemoveAssociation:)"},
    };
    database.reset();
    for (const auto &[call, source] : calls) {
        restart();
        call();
        EXPECT_THAT(loggedErrors().front(),
                    HasSubstr(std::string("Error: -11000 ") + source + ": Error en la base"));
        EXPECT_EQ(ui->boxTexts().front(), kDatabaseBox);
        EXPECT_FALSE(gAppRunning);
    }
}
