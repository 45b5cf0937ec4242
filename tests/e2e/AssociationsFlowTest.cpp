// The association wizard as a seller drives it: the demo ERP and marketplace through the real
// connector library and feria-sim, the seller's embedded database, the scripted Ui.

#include "WizardFlowTest.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "editors/ProductListGrid.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/connectors/LoadedErpLibrary.h"
#include "publication/SellerLists.h"
#include "shell/frame/NavigationButtons.h"
#include "wizards/associations/AssociationAddition.h"
#include "wizards/associations/AssociationWizard.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <cstring>
#include <gmock/gmock.h>
#include <string>

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

namespace {

const char *const kShirt = "ERP-0495|Camiseta deportiva Alpaca Viva algodón peinado|"
                           "ALP-0601-1010";
const char *const kShirtAttributes =
    "<Properties/><VariantProperties><Field fieldID=\"Color\"><![CDATA[Rojo]]></Field>"
    "<Field fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>";
const char *const kExistsBox = "Existe una asociación con igual identificador dovel, "
                               "identificador Zorvanta y atributos contenidos en la asociación "
                               "previa";
const char *const kClothes = "Vestuario para toda la familia.";
const char *const kShirts = "Camisetas de algodón en todas las tallas.";
const char *const kHome = "Cocina, muebles y decoración.";
const char *const kKitchen = "Todo para cocinar.";
const char *const kAppliances = "Ayudantes de cocina.";

/// The demo seller's assistant, opened on the association wizard.
class AssociationsFlowTest : public WizardFlowTest<AssociationWizard>
{
protected:
    void SetUp() override
    {
        WizardFlowTest::SetUp();
        registerSellerListLines();
    }
    void openWizard()
    {
        openWizardPanel("Associations");
        if (HasFatalFailure())
            return;
        // The list opens on the ERP's first category; every association shows by code.
        QTest::mouseClick(control<QRadioButton>("ShowAssociations1", "Code"), Qt::LeftButton);
    }
    template <class Control> Control *control(const char *pageName, const char *name) const
    {
        auto *found = page(pageName)->findChild<Control *>(name);
        EXPECT_NE(found, nullptr) << pageName << "." << name;
        return found;
    }
    ProductListGrid *list(const char *pageName) const
    {
        return control<ProductListGrid>(pageName, "MSFlexGrid1");
    }
    static std::string lineText(const QTableWidget &table, int row)
    {
        std::string text;
        for (int column = 0; column < table.columnCount(); ++column) {
            const QTableWidgetItem *item = table.item(row, column);
            text += (column ? "|" : "") + (item ? item->text().toStdString() : std::string());
        }
        return text;
    }
    Texts lines(const char *pageName) const
    {
        Texts texts;
        const ProductListGrid *grid = list(pageName);
        for (int row = 0; row < grid->lineCount(); ++row)
            texts.push_back(lineText(*grid, row));
        return texts;
    }
    std::string selectedLine(const char *pageName) const
    {
        const ProductListGrid *grid = list(pageName);
        return grid->Row() ? lineText(*grid, grid->Row() - 1) : std::string();
    }
    /// Clicks the line whose first column reads `code`.
    void clickLine(const char *pageName, const char *code)
    {
        ProductListGrid *grid = list(pageName);
        const auto found = grid->findItems(QString::fromUtf8(code), Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << code;
        grid->scrollToItem(found.first());
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualItemRect(found.first()).center());
    }
    void click(const char *pageName, const char *name)
    {
        auto *button = control<QPushButton>(pageName, name);
        ASSERT_TRUE(button->isEnabled()) << pageName << "." << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    bool enabled(const char *pageName, const char *name) const
    {
        return control<QPushButton>(pageName, name)->isEnabled();
    }
    /// Looks the ERP products up by code, as the seller types it.
    void searchCode(const char *code)
    {
        QTest::mouseClick(control<QRadioButton>("AssociateSellerProduct1", "Code"), Qt::LeftButton);
        auto *text = control<QLineEdit>("AssociateSellerProduct1", "SearchText");
        text->selectAll();
        QTest::keyClicks(text, code);
    }
    /// Visits the marketplace's categories down a path of node texts.
    void visitCategories(std::initializer_list<const char *> path)
    {
        auto *tree = control<QTreeWidget>("AssociateZorvantaProduct1", "TreeView1");
        for (const char *text : path) {
            const auto found =
                tree->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
            ASSERT_FALSE(found.isEmpty()) << text;
            tree->scrollToItem(found.first());
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                              tree->visualItemRect(found.first()).center());
        }
    }
    /// The property grid of a page, as its rows read: "name|value".
    Texts propertyRows(const char *pageName) const
    {
        auto *table = control<ZorvantaPropertiesGrid>(pageName, "ZorvantaPropertiesGrid1")
                          ->findChild<QTableWidget *>("MSFlexGrid1");
        Texts texts;
        for (int row = 0; row < table->rowCount(); ++row)
            texts.push_back(lineText(*table, row));
        return texts;
    }
    /// Picks `choice` for the property shown as `name` on the properties page, as the seller
    /// does: the cell opened with Enter, the pick-list moved with the arrows, Enter again.
    void pick(const char *name, const char *choice)
    {
        auto *grid = control<ZorvantaPropertiesGrid>("AssociateZorvantaProperties1",
                                                     "ZorvantaPropertiesGrid1");
        auto *table = grid->findChild<QTableWidget *>("MSFlexGrid1");
        const auto found = table->findItems(QString::fromUtf8(name), Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << name;
        const QRect cell = table->visualRect(table->model()->index(found.first()->row(), 1));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
        QTest::keyClick(table, Qt::Key_Return);
        auto *combo = grid->findChild<QComboBox *>("Combo1");
        ASSERT_TRUE(combo->isVisible()) << name;
        const int target = combo->findText(QString::fromUtf8(choice));
        ASSERT_GE(target, 0) << choice;
        while (combo->currentIndex() < target)
            QTest::keyClick(combo, Qt::Key_Down);
        while (combo->currentIndex() > target)
            QTest::keyClick(combo, Qt::Key_Up);
        QTest::keyClick(combo, Qt::Key_Return);
    }

    /// From the list to the confirmation of the ERP product `code` with the marketplace
    /// product `product`, found under `path`; variant values are picked on the way.
    void choose(const char *code, std::initializer_list<const char *> path, const char *product,
                std::initializer_list<std::pair<const char *, const char *>> picks = {})
    {
        click("ShowAssociations1", "Asociar");
        ASSERT_EQ(wizard->currentPageKey(), "AssociateSellerProduct");
        searchCode(code);
        clickLine("AssociateSellerProduct1", code);
        click("AssociateSellerProduct1", "Forward");
        ASSERT_EQ(wizard->currentPageKey(), "AssociateZorvantaProduct");
        visitCategories(path);
        clickLine("AssociateZorvantaProduct1", product);
        click("AssociateZorvantaProduct1", "Forward");
        for (const auto &[name, choice] : picks)
            pick(name, choice);
        if (wizard->currentPageKey() == "AssociateZorvantaProperties")
            click("AssociateZorvantaProperties1", "Forward");
        ASSERT_EQ(wizard->currentPageKey(), "ConfirmAssociationAddition");
    }

    Texts associations()
    {
        return database->rows(Sql("SELECT IdPrdDovel, IdPrdZorvanta, Atributos FROM WIPRODASOC "
                                  "ORDER BY IdPrdAsociado"));
    }
    void storeAssociation(const std::string &dovelId, const std::string &marketplaceId,
                          const std::string &attributes)
    {
        database->execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, "
                                   "Atributos, FechaAsociado) VALUES ('"
                                << sqlText(dovelId) << "', '" << sqlText(marketplaceId) << "', '"
                                << sqlText(attributes) << "', '2026-03-02 10:00:00')");
    }
    /// The log's errors as "Error: <number> (<source>): <description>".
    Texts loggedErrors() const
    {
        Texts errors;
        for (const std::string &line : logLines())
            errors.push_back(line.substr(line.find("Error: ")));
        return errors;
    }
};

TEST_F(AssociationsFlowTest, withNoAssociationTheListHasHeadingsOnlyAndNothingToRemove)
{
    openWizard();
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_TRUE(lines("ShowAssociations1").empty());
    EXPECT_EQ(list("ShowAssociations1")->horizontalHeaderItem(3)->text(), "Código Zorvanta");
    EXPECT_FALSE(enabled("ShowAssociations1", "Desasociar"));
    EXPECT_TRUE(enabled("ShowAssociations1", "Asociar"));
    EXPECT_EQ(propertyRows("ShowAssociations1"), Texts{"|"});
    EXPECT_EQ(control<QTreeWidget>("ShowAssociations1", "ListView1")->topLevelItemCount(), 0);
}

TEST_F(AssociationsFlowTest, aNewAssociationWithVariantValuesWritesOneRowAndIsListed)
{
    openWizard();
    click("ShowAssociations1", "Asociar");
    searchCode("ERP-0495");
    EXPECT_THAT(lines("AssociateSellerProduct1"), ElementsAre(kShirt));
    click("AssociateSellerProduct1", "Forward");

    // The root of the marketplace holds no products: nothing can be chosen until a category
    // with products has been visited.
    EXPECT_FALSE(control<NavigationButtons>("AssociateZorvantaProduct1", "NavigationButtons1")
                     ->NextEnabled());
    visitCategories({kClothes, kShirts});
    EXPECT_EQ(lines("AssociateZorvantaProduct1").front(),
              "ZP-00191|Camiseta deportiva Alpaca Viva N.º 1");
    EXPECT_THAT(propertyRows("AssociateZorvantaProduct1"), testing::Contains("Marca|Alpaca Viva"));
    click("AssociateZorvantaProduct1", "Forward");

    ASSERT_EQ(wizard->currentPageKey(), "AssociateZorvantaProperties");
    // Only the variant properties are asked for.
    EXPECT_THAT(propertyRows("AssociateZorvantaProperties1"), ElementsAre("Color|", "Talla|"));
    click("AssociateZorvantaProperties1", "Forward");
    EXPECT_EQ(wizard->currentPageKey(), "AssociateZorvantaProperties");
    pick("Color", "Rojo");
    click("AssociateZorvantaProperties1", "Forward");
    EXPECT_EQ(wizard->currentPageKey(), "AssociateZorvantaProperties");
    pick("Talla", "M");
    // Existencia and Condición are required too, and empty, but not variant: they never stop.
    click("AssociateZorvantaProperties1", "Forward");

    ASSERT_EQ(wizard->currentPageKey(), "ConfirmAssociationAddition");
    EXPECT_THAT(propertyRows("ConfirmAssociationAddition1"),
                testing::IsSupersetOf({"Marca|Alpaca Viva", "Color|Rojo", "Talla|M"}));
    click("ConfirmAssociationAddition1", "Accept");

    EXPECT_THAT(associations(), ElementsAre(std::string("ERP-0495|ZP-00191|") + kShirtAttributes));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    EXPECT_THAT(lines("ShowAssociations1"), ElementsAre(std::string(kShirt) + "|ZP-00191"));
    EXPECT_TRUE(enabled("ShowAssociations1", "Desasociar"));
    // The seller's variant values beside the marketplace's own fixed ones.
    EXPECT_THAT(propertyRows("ShowAssociations1"),
                testing::IsSupersetOf({"Marca|Alpaca Viva", "Color|Rojo", "Talla|M"}));
    const std::string obligatory = "Los valores marcados en verde son obligatorios. Por favor "
                                   "ingreselos antes de proceder";
    EXPECT_EQ(ui->boxTexts(), Texts(2, obligatory));
    EXPECT_EQ(ui->boxes().front().title, "Error en la entrada de datos");
    EXPECT_TRUE(logLines().empty());
}

TEST_F(AssociationsFlowTest, theDetailShowsTheMarketplacesFixedValuesAndTheSellersVariantOnes)
{
    // A row written by another program, with a fixed value of its own.
    storeAssociation("ERP-0495", "ZP-00191",
                     "<Properties><Field fieldID=\"Marca\"><![CDATA[Otra marca]]></Field>"
                     "</Properties><VariantProperties><Field fieldID=\"Color\"><![CDATA[Gris]]>"
                     "</Field></VariantProperties>");
    openWizard();
    const Texts shown = propertyRows("ShowAssociations1");
    EXPECT_THAT(shown, testing::IsSupersetOf({"Marca|Alpaca Viva", "Color|Gris"}));
    EXPECT_THAT(shown, testing::Not(testing::Contains("Marca|Otra marca")));
    EXPECT_THAT(shown, testing::Contains("Talla|")) << "no value, and no failure";
    EXPECT_THAT(control<QTreeWidget>("ShowAssociations1", "ListView1")
                    ->topLevelItem(0)
                    ->text(1)
                    .toStdString(),
                "ERP-0495");
}

TEST_F(AssociationsFlowTest, theSameChoiceAgainIsRefusedAndWritesNothing)
{
    storeAssociation("ERP-0495", "ZP-00191", kShirtAttributes);
    openWizard();
    EXPECT_THAT(lines("ShowAssociations1"), ElementsAre(std::string(kShirt) + "|ZP-00191"));
    choose("ERP-0495", {kClothes, kShirts}, "ZP-00191", {{"Color", "Rojo"}, {"Talla", "M"}});
    click("ConfirmAssociationAddition1", "Accept");

    EXPECT_EQ(ui->boxTexts(), Texts{std::string("Error: -10000: ") + kExistsBox});
    EXPECT_EQ(associations().size(), 1u);
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    EXPECT_EQ(lines("ShowAssociations1").size(), 1u);
    EXPECT_TRUE(gAppRunning);
}

TEST_F(AssociationsFlowTest, aProductWithoutVariantsSkipsThePropertiesPageBothWays)
{
    openWizard();
    choose("ERP-0148", {kHome, kKitchen, kAppliances}, "ZP-00152");
    click("ConfirmAssociationAddition1", "Back");
    EXPECT_EQ(wizard->currentPageKey(), "AssociateZorvantaProduct");
    EXPECT_EQ(selectedLine("AssociateZorvantaProduct1"), "ZP-00152|Cafetera Hogarex HO-600-08");
    click("AssociateZorvantaProduct1", "Forward");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmAssociationAddition");
    click("ConfirmAssociationAddition1", "Accept");

    // The marketplace's own values are not stored with the association.
    EXPECT_THAT(associations(), ElementsAre("ERP-0148|ZP-00152|<Properties/><VariantProperties/>"));
    EXPECT_TRUE(ui->boxTexts().empty());

    choose("ERP-0148", {kHome, kKitchen, kAppliances}, "ZP-00152");
    click("ConfirmAssociationAddition1", "Accept");
    EXPECT_EQ(ui->boxTexts(), Texts{std::string("Error: -10000: ") + kExistsBox});
    EXPECT_EQ(associations().size(), 1u);
}

TEST_F(AssociationsFlowTest, backKeepsEachChoiceOfTheAdditionUnderWay)
{
    openWizard();
    choose("ERP-0148", {kHome, kKitchen, kAppliances}, "ZP-00152");
    const auto addition = std::dynamic_pointer_cast<AssociationAddition>(wizard->operation());
    click("ConfirmAssociationAddition1", "Back");
    click("AssociateZorvantaProduct1", "Back");
    ASSERT_EQ(wizard->currentPageKey(), "AssociateSellerProduct");
    click("AssociateSellerProduct1", "Back");
    ASSERT_EQ(wizard->currentPageKey(), "Show");

    // Coming back to the new association finds what was chosen.
    click("ShowAssociations1", "Asociar");
    EXPECT_EQ(wizard->operation(), addition);
    EXPECT_EQ(addition->Product()->dovelID(), "ERP-0148");
    EXPECT_EQ(addition->zorvantaDefinition()->id(), "ZP-00152");
    click("AssociateSellerProduct1", "Forward");
    EXPECT_EQ(selectedLine("AssociateZorvantaProduct1"), "ZP-00152|Cafetera Hogarex HO-600-08");
}

struct PublicationState
{
    const char *name;
    const char *state;
};

void PrintTo(const PublicationState &row, std::ostream *out)
{
    *out << row.name;
}

class RemovalRefusedTest : public AssociationsFlowTest,
                           public testing::WithParamInterface<PublicationState>
{
};

TEST_P(RemovalRefusedTest, whilePublicationsExistTheRowStaysAndIsStillListed)
{
    storeAssociation("ERP-0495", "ZP-00191", kShirtAttributes);
    database->execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdAsociado, IdTienda, Estado) "
                               "VALUES (1, '100', '"
                            << sqlText(GetParam().state) << "')");
    openWizard();
    click("ShowAssociations1", "Desasociar");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmAssociationRemoval");
    EXPECT_THAT(propertyRows("ConfirmAssociationRemoval1"),
                testing::IsSupersetOf({"Marca|Alpaca Viva", "Color|Rojo", "Talla|M"}));
    click("ConfirmAssociationRemoval1", "Accept");

    EXPECT_EQ(ui->boxTexts(), Texts{"Error: -10001: No se puede remover la asociación porque "
                                    "existen productos publicados con esa asociación"});
    EXPECT_EQ(associations().size(), 1u);
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(lines("ShowAssociations1").size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(AssociationsFlow, RemovalRefusedTest,
                         testing::Values(PublicationState{"waitingToBeSent", "L"},
                                         PublicationState{"sentAndUnanswered", "P"},
                                         PublicationState{"published", "K"},
                                         PublicationState{"withdrawing", "E"}),
                         [](const testing::TestParamInfo<PublicationState> &row) {
                             return row.param.name;
                         });

TEST_F(AssociationsFlowTest, removingAnAssociationWithoutPublicationsDeletesItsRowOnly)
{
    storeAssociation("ERP-0148", "ZP-00152", "<Properties/><VariantProperties/>");
    storeAssociation("ERP-0495", "ZP-00191", kShirtAttributes);
    openWizard();
    clickLine("ShowAssociations1", "ERP-0495");
    click("ShowAssociations1", "Desasociar");
    click("ConfirmAssociationRemoval1", "Accept");

    EXPECT_THAT(associations(), ElementsAre("ERP-0148|ZP-00152|<Properties/><VariantProperties/>"));
    EXPECT_THAT(lines("ShowAssociations1"),
                ElementsAre("ERP-0148|Cafetera de goteo Hogarín 4 tazas|HOG-020101-1010|"
                            "ZP-00152"));
    EXPECT_TRUE(ui->boxTexts().empty());
}

struct AbortCase
{
    const char *name;
    const char *key;
    const char *page;
};

void PrintTo(const AbortCase &row, std::ostream *out)
{
    *out << row.name;
}

class AbortTest : public AssociationsFlowTest, public testing::WithParamInterface<AbortCase>
{
protected:
    /// Walks a new association of the shirt up to `key`; a removal for its own page.
    void reach(const std::string &key)
    {
        if (key == "ConfirmAssociationRemoval") {
            click("ShowAssociations1", "Desasociar");
            return;
        }
        click("ShowAssociations1", "Asociar");
        if (key == "AssociateSellerProduct")
            return;
        searchCode("ERP-0496");
        click("AssociateSellerProduct1", "Forward");
        if (key == "AssociateZorvantaProduct")
            return;
        visitCategories({kClothes, kShirts});
        click("AssociateZorvantaProduct1", "Forward");
        if (key == "AssociateZorvantaProperties")
            return;
        pick("Color", "Azul");
        pick("Talla", "L");
        click("AssociateZorvantaProperties1", "Forward");
    }
};

TEST_P(AbortTest, cancelAsksAndNoLeavesEverythingAsItWas)
{
    const AbortCase &row = GetParam();
    storeAssociation("ERP-0495", "ZP-00191", kShirtAttributes);
    openWizard();
    reach(row.key);
    expectCancelAsksToAbort(row.page, row.key, "Desea abortar la operación?");
    EXPECT_EQ(associations().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    AssociationsFlow, AbortTest,
    testing::Values(AbortCase{"onTheErpProduct", "AssociateSellerProduct",
                              "AssociateSellerProduct1"},
                    AbortCase{"onTheMarketplaceProduct", "AssociateZorvantaProduct",
                              "AssociateZorvantaProduct1"},
                    AbortCase{"onTheVariantValues", "AssociateZorvantaProperties",
                              "AssociateZorvantaProperties1"},
                    AbortCase{"onTheAdditionsConfirmation", "ConfirmAssociationAddition",
                              "ConfirmAssociationAddition1"},
                    AbortCase{"onTheRemovalsConfirmation", "ConfirmAssociationRemoval",
                              "ConfirmAssociationRemoval1"}),
    [](const testing::TestParamInfo<AbortCase> &row) { return std::string(row.param.name); });

TEST_F(AssociationsFlowTest, anAttributeOfADroppedPropertyFailsWhenShownNotWhenListed)
{
    storeAssociation("ERP-0148", "ZP-00152", "<Properties/><VariantProperties/>");
    storeAssociation("ERP-0495", "ZP-00191",
                     "<Properties/><VariantProperties><Field fieldID=\"Sabor\"><![CDATA[Menta]]>"
                     "</Field></VariantProperties>");
    openWizard();
    EXPECT_EQ(lines("ShowAssociations1").size(), 2u);
    EXPECT_TRUE(logLines().empty());
    EXPECT_TRUE(gAppRunning);

    clickLine("ShowAssociations1", "ERP-0495");
    EXPECT_FALSE(gAppRunning) << "a property the product lacks is fatal";
    ASSERT_EQ(loggedErrors().size(), 1u);
    EXPECT_THAT(loggedErrors().front(), HasSubstr("Error: 5 "));
}

TEST_F(AssociationsFlowTest, aStoredRowThatIsNotXmlRefusesTheNewAssociation)
{
    storeAssociation("ERP-0496", "ZP-00192", "<Properties><VariantProperties/>");
    openWizard();
    ui->clearBoxes();
    choose("ERP-0496", {kClothes, kShirts}, "ZP-00192", {{"Color", "Negro"}, {"Talla", "S"}});
    click("ConfirmAssociationAddition1", "Accept");

    // The seller is told of the failure; its words go to the log.
    ASSERT_FALSE(ui->boxTexts().empty());
    EXPECT_EQ(ui->boxTexts().front(),
              "Error: -10501: Error de la aplicación. Contacte al administrador del sistema");
    EXPECT_THAT(loggedErrors(),
                testing::Contains(HasSubstr("Error: -10501 (AssociatedProduct:CreateAssociation "
                                            "): El XML construído para los atributos "
                                            "característicos está mal construido")));
    EXPECT_EQ(associations().size(), 1u);
    EXPECT_TRUE(gAppRunning);
}

/// The real ERP library, answering every search of all products with its first line twice.
class DoublingErp : public LoadedErpLibrary
{
public:
    std::int32_t BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType,
                                             char *searchText, std::int32_t querySize, char *lastId,
                                             std::int32_t direction, const char *ministoreId,
                                             std::int32_t *count, char *reply) override
    {
        const std::int32_t code = LoadedErpLibrary::BusquedaProductosIndividual(
            productType, queryType, searchText, querySize, lastId, direction, ministoreId, count,
            reply);
        std::string text(reply);
        const auto begin = text.find("<Producto>");
        const auto end = text.find("</Producto>");
        if (productType == 0 && begin != std::string::npos && end != std::string::npos) {
            const std::string line = text.substr(begin, end + 11 - begin);
            text.insert(begin, line);
            std::strncpy(reply, text.c_str(), 65534);
        }
        return code;
    }
};

TEST_F(AssociationsFlowTest, twoErpLinesWithTheSameCodeFailOnTheListsKey)
{
    setErpLibrary(std::make_shared<DoublingErp>());
    openWizard();
    click("ShowAssociations1", "Asociar");
    searchCode("ERP-0495");

    EXPECT_FALSE(gAppRunning) << "a key held twice is fatal";
    ASSERT_FALSE(loggedErrors().empty());
    EXPECT_THAT(loggedErrors().front(),
                HasSubstr("Error: 457 (AssociateSellerProduct:SellerSearch1_Changed)"));
    EXPECT_TRUE(associations().empty());
}

} // namespace
