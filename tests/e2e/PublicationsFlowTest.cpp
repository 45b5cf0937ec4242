// A seller publishes, modifies and withdraws associated products through the pages of the
// publication wizard, against a marketplace whose stores allow 10, 0 and 500 publications.

#include "WizardFlowTest.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "editors/ProductListGrid.h"
#include "publication/PublishedProduct.h"
#include "publication/SellerLists.h"
#include "shell/Constants.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/publications/NewPublicationValues.h"
#include "wizards/publications/PublicationAddition.h"
#include "wizards/publications/PublicationModification.h"
#include "wizards/publications/PublicationRemoval.h"
#include "wizards/publications/PublicationValues.h"
#include "wizards/publications/PublicationWizard.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>
#include <optional>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

/// The demo shirts ERP-0495 (blue, M) and ERP-0496 (red, L), and a notebook whose marketplace
/// product leaves the seller nothing to type.
constexpr const char kAssociations[] =
    "INSERT INTO WIPRODASOC VALUES "
    "(1, 'ERP-0495', 'ZP-1', '<Properties/><VariantProperties><Field fieldID=\"Color\">"
    "<![CDATA[Azul]]></Field><Field fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>',"
    " '2026-01-10 09:00:00'), "
    "(2, 'ERP-0496', 'ZP-2', '<Properties/><VariantProperties><Field fieldID=\"Color\">"
    "<![CDATA[Rojo]]></Field><Field fieldID=\"Talla\"><![CDATA[L]]></Field></VariantProperties>',"
    " '2026-01-10 09:05:00'), "
    "(3, 'ERP-0338', 'ZP-3', '<Properties/><VariantProperties/>', '2026-01-10 09:10:00')";

class PublicationsFlowTest : public WizardFlowTest<PublicationWizard>
{
protected:
    void SetUp() override
    {
        WizardFlowTest::SetUp();
        database->execute(Sql("INSERT INTO WITIENDAS VALUES ('100', 'Andina Hogar', 'DV-01'), "
                              "('200', 'Andina Deportes', 'DV-02'), "
                              "('300', 'Andina Tecnología', 'DV-03')"));
        database->execute(Sql(kAssociations));
    }
    void openWizard()
    {
        registerSellerListLines();
        openWizardPanel("Publications");
    }

    /// Every line of the seller's list of `type` (1 associations, 2 publications) in `store`,
    /// as the search asks for them: publications are listed store by store.
    std::vector<std::shared_ptr<ProductLine>>
    list(std::int16_t type, const std::shared_ptr<ZorvantaMinistore> &store = nullptr)
    {
        auto browser = sellerBrowser();
        browser->setProductType(type);
        browser->setMinistore(store);
        std::vector<std::shared_ptr<ProductLine>> lines;
        for (browser->StartQuery();; browser->GetMore()) {
            for (const auto &line : *browser->products())
                lines.push_back(line);
            if (browser->allRead() != 0)
                return lines;
        }
    }
    std::shared_ptr<AssociatedProduct> association(const std::string &id)
    {
        for (const auto &line : list(1)) {
            auto associated = std::dynamic_pointer_cast<AssociatedProduct>(line);
            if (associated && associated->associationId() == id)
                return associated;
        }
        ADD_FAILURE() << "no association " << id;
        return nullptr;
    }
    std::shared_ptr<PublishedProduct> publication(const std::string &id)
    {
        for (const auto &store : *gSeller->ministores()) {
            for (const auto &line : list(2, store)) {
                auto published = std::dynamic_pointer_cast<PublishedProduct>(line);
                if (published && published->publicationId() == id)
                    return published;
            }
        }
        ADD_FAILURE() << "no publication " << id;
        return nullptr;
    }

    /// What the list's Crear nueva publicación and the first page leave for the second page.
    void beginAddition(const std::string &associationId)
    {
        auto addition = std::make_shared<PublicationAddition>();
        addition->setProduct(association(associationId));
        addition->setValues(NewPublicationValues(*addition->Product()));
        wizard->setOperation(addition);
        wizard->SwitchPage("PublishAssociationNC");
    }
    /// What the list's Modificar publicación leaves for the second page.
    void beginModification(const std::string &publicationId)
    {
        auto modification = std::make_shared<PublicationModification>();
        modification->setProduct(publication(publicationId));
        modification->setValues(PublicationValues(*modification->Product()));
        wizard->setOperation(modification);
        wizard->SwitchPage("PublishAssociationNC");
    }
    /// What the list's Despublicar leaves for the confirmation.
    void beginRemoval(const std::string &publicationId)
    {
        auto removal = std::make_shared<PublicationRemoval>();
        removal->setProduct(publication(publicationId));
        wizard->setOperation(removal);
        wizard->SwitchPage("ConfirmPublication");
    }

    void click(const char *pageName, const char *button)
    {
        QPushButton *found = page(pageName)->findChild<QPushButton *>(button);
        ASSERT_NE(found, nullptr) << button;
        QTest::mouseClick(found, Qt::LeftButton);
    }
    bool enabled(const char *pageName, const char *button) const
    {
        return page(pageName)->findChild<QPushButton *>(button)->isEnabled();
    }
    std::string text(const char *pageName, const char *control) const
    {
        if (auto *edit = page(pageName)->findChild<QLineEdit *>(control))
            return edit->text().toStdString();
        return page(pageName)->findChild<QLabel *>(control)->text().toStdString();
    }

    /// The property grid's table on a page, and a value typed into it as a seller does.
    QTableWidget *grid(const char *pageName) const
    {
        return page(pageName)
            ->findChild<QWidget *>("ZorvantaPropertiesGrid1")
            ->findChild<QTableWidget *>("MSFlexGrid1");
    }
    int rowOf(const char *pageName, const std::string &name) const
    {
        QTableWidget *table = grid(pageName);
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->item(row, 0) && table->item(row, 0)->text().toStdString() == name)
                return row;
        }
        ADD_FAILURE() << "no row " << name;
        return -1;
    }
    std::string cell(const char *pageName, const std::string &name) const
    {
        const QTableWidgetItem *item = grid(pageName)->item(rowOf(pageName, name), 1);
        return item ? item->text().toStdString() : std::string();
    }
    void type(const std::string &name, const char *keys)
    {
        QTableWidget *table = grid("PublishAssociationNC1");
        const QRect rect =
            table->visualRect(table->model()->index(rowOf("PublishAssociationNC1", name), 1));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::keyClick(table, Qt::Key_Return);
        auto *editor = page("PublishAssociationNC1")->findChild<QLineEdit *>("Text1");
        ASSERT_TRUE(editor->isVisible());
        editor->selectAll();
        QTest::keyClicks(editor, keys);
    }

    /// The lines of a page's product list, columns joined by "|".
    Texts lines(const char *pageName) const
    {
        const auto *list = page(pageName)->findChild<ProductListGrid *>("MSFlexGrid1");
        Texts texts;
        for (int row = 0; row < list->lineCount(); ++row) {
            std::string text;
            for (int column = 0; column < list->columnCount(); ++column) {
                const QTableWidgetItem *item = list->item(row, column);
                text += (column ? "|" : "") + (item ? item->text().toStdString() : std::string());
            }
            texts.push_back(text);
        }
        return texts;
    }
    /// Looks the products up by code on a page's search, as the seller types it.
    void searchCode(const char *pageName, const char *code)
    {
        QTest::mouseClick(page(pageName)->findChild<QRadioButton *>("Code"), Qt::LeftButton);
        auto *text = page(pageName)->findChild<QLineEdit *>("SearchText");
        text->selectAll();
        QTest::keyClicks(text, code);
    }
    /// Clicks the line whose first column reads `code`, as a seller does.
    void clickLine(const char *pageName, const char *code)
    {
        auto *list = page(pageName)->findChild<ProductListGrid *>("MSFlexGrid1");
        const auto found = list->findItems(code, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << code;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(found.first()).center());
    }

    QTreeWidget *stores() const
    {
        return page("PublishSelectMinistore1")->findChild<QTreeWidget *>("ListView1");
    }
    Texts storeRows() const
    {
        Texts rows;
        for (int row = 0; row < stores()->topLevelItemCount(); ++row) {
            const QTreeWidgetItem *item = stores()->topLevelItem(row);
            std::string line;
            for (int column = 0; column < 5; ++column)
                line += (column ? "|" : "") + item->text(column).toStdString();
            rows.push_back(line);
        }
        return rows;
    }
    QTreeWidgetItem *storeRow(const char *id) const
    {
        return stores()->findItems(id, Qt::MatchExactly, 0).value(0);
    }
    void chooseStore(const char *id)
    {
        QTreeWidgetItem *item = storeRow(id);
        ASSERT_NE(item, nullptr) << id;
        QTest::mouseClick(stores()->viewport(), Qt::LeftButton, {},
                          stores()->visualItemRect(item).center());
        click("PublishSelectMinistore1", "Forward");
    }

    Texts published()
    {
        return database->rows(
            Sql("SELECT IdPrdPublicado, IdPrdAsociado, IdTienda, Estado FROM WIPRODPUBL "
                "ORDER BY IdPrdPublicado"));
    }
    Texts pending()
    {
        return database->rows(Sql("SELECT IdPrdPublicado, IdTienda, Estado, NumInt FROM "
                                  "WIPRODPEND ORDER BY IdPrdPublicado, Estado"));
    }
    std::string pendingAttributes()
    {
        return database->rows(Sql("SELECT Atributos FROM WIPRODPEND")).at(0);
    }
    /// Publications the store already holds, as the marketplace confirmed them.
    void alreadyPublished(const char *store, int count)
    {
        for (int n = 1; n <= count; ++n)
            database->execute(Sql()
                              << "INSERT INTO WIPRODPUBL VALUES (" << sqlNumber(900 + n) << ", 2, '"
                              << sqlText(store) << "', 'K', '', '2026-01-11 10:00:00')");
    }

    /// Publication 4 of the blue shirt in store 100, confirmed by the marketplace with its list
    /// price and stock, as the ERP keeps it.
    void confirmedShirt()
    {
        database->execute(
            Sql("INSERT INTO WIPRODPUBL VALUES (4, 1, '100', 'K', '<Properties/><VariantProperties>"
                "<Field fieldID=\"Cy_List_Price\"><![CDATA[12.9]]></Field>"
                "<Field fieldID=\"Existencia\"><![CDATA[5]]></Field></VariantProperties>', "
                "'2026-02-01 10:00:00')"));
    }
};

} // namespace

// ---------------------------------------------------------------------------------------------
// The list and the choice of product.

TEST_F(PublicationsFlowTest, anEmptyListOnlyOffersANewPublication)
{
    openWizard();
    ASSERT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_TRUE(lines("ShowPublications1").empty());
    EXPECT_TRUE(enabled("ShowPublications1", "Publicar"));
    EXPECT_FALSE(enabled("ShowPublications1", "Modificar"));
    EXPECT_FALSE(enabled("ShowPublications1", "Despublicar"));
}

TEST_F(PublicationsFlowTest, anotherProductStartsFromItsFirstPriceAndTheSameKeepsWhatWasTyped)
{
    openWizard();
    click("ShowPublications1", "Publicar");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociatedProduct");
    searchCode("PublishAssociatedProduct1", "ERP-0");
    ASSERT_EQ(lines("PublishAssociatedProduct1").size(), 3u);
    EXPECT_FALSE(enabled("PublishAssociatedProduct1", "Accept"));
    clickLine("PublishAssociatedProduct1", "ERP-0495");
    click("PublishAssociatedProduct1", "Forward");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    type("Existencia", "7");

    click("PublishAssociationNC1", "Back");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociatedProduct");
    click("PublishAssociatedProduct1", "Forward");
    EXPECT_EQ(cell("PublishAssociationNC1", "Existencia"), "7");

    click("PublishAssociationNC1", "Back");
    clickLine("PublishAssociatedProduct1", "ERP-0496");
    click("PublishAssociatedProduct1", "Forward");
    EXPECT_EQ(cell("PublishAssociationNC1", "Existencia"), "");
    EXPECT_EQ(cell("PublishAssociationNC1", "Precio de lista"), "14" + gDecimalSeparator + "5");
    EXPECT_EQ(ui->boxTexts(), Texts{});
}

TEST_F(PublicationsFlowTest, aPublicationMadeThroughThePagesIsListedWithItsNumber)
{
    openWizard();
    click("ShowPublications1", "Publicar");
    searchCode("PublishAssociatedProduct1", "ERP-0495");
    clickLine("PublishAssociatedProduct1", "ERP-0495");
    click("PublishAssociatedProduct1", "Forward");
    type("Existencia", "7");
    click("PublishAssociationNC1", "Forward");
    chooseStore("100");
    click("ConfirmPublication1", "Accept");

    ASSERT_EQ(wizard->currentPageKey(), "Show");
    searchCode("ShowPublications1", "ERP-0");
    const Texts shown = lines("ShowPublications1");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_THAT(shown[0], testing::StartsWith("ERP-0495|"));
    EXPECT_THAT(shown[0], HasSubstr("|ZP-1|1|"));
    EXPECT_TRUE(enabled("ShowPublications1", "Modificar"));
    EXPECT_TRUE(enabled("ShowPublications1", "Despublicar"));

    // Modifying starts from what the publication holds; cancelling leaves it as it was.
    click("ShowPublications1", "Modificar");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    EXPECT_EQ(cell("PublishAssociationNC1", "Existencia"), "7");
    click("PublishAssociationNC1", "Cancel");
    ASSERT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_THAT(pending(), ElementsAre("1|100|I|0"));

    searchCode("ShowPublications1", "ERP-0");
    click("ShowPublications1", "Despublicar");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmPublication");
    click("ConfirmPublication1", "Accept");
    searchCode("ShowPublications1", "ERP-0");
    EXPECT_TRUE(lines("ShowPublications1").empty());
    EXPECT_EQ(ui->boxTexts(), Texts{});
}

// ---------------------------------------------------------------------------------------------
// Publishing.

TEST_F(PublicationsFlowTest, aShirtIsPublishedWithItsFirstPriceAndTheTypedStock)
{
    openWizard();
    beginAddition("1");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    // The list price shows as a currency number, without trailing zeros, with the machine's
    // separator.
    EXPECT_EQ(cell("PublishAssociationNC1", "Precio de lista"), "12" + gDecimalSeparator + "9");
    EXPECT_FALSE(enabled("PublishAssociationNC1", "Accept"));
    type("Existencia", "7");
    click("PublishAssociationNC1", "Forward");

    ASSERT_EQ(wizard->currentPageKey(), "PublishSelectMinistore");
    EXPECT_THAT(storeRows(), ElementsAre("100|Andina Hogar|Todo para la casa|0|10",
                                         "200|Andina Deportes|Bicicletas y camping|0|0",
                                         "300|Andina Tecnología||0|500"));
    EXPECT_FALSE(enabled("PublishSelectMinistore1", "Forward"));
    chooseStore("300");

    ASSERT_EQ(wizard->currentPageKey(), "ConfirmPublication");
    EXPECT_EQ(text("ConfirmPublication1", "Label3"), "Confirme la publicación");
    EXPECT_EQ(text("ConfirmPublication1", "Text1"), "300 : Andina Tecnología");
    EXPECT_EQ(text("ConfirmPublication1", "Text2"), "1");
    EXPECT_EQ(cell("ConfirmPublication1", "Existencia"), "7");
    EXPECT_EQ(cell("ConfirmPublication1", "Color"), "Azul");
    click("ConfirmPublication1", "Accept");

    EXPECT_THAT(published(), ElementsAre("1|1|300|L"));
    EXPECT_THAT(pending(), ElementsAre("1|300|I|0"));
    // Only what the seller types travels: no brand, no colour.
    EXPECT_THAT(pendingAttributes(), HasSubstr("<Field fieldID=\"Existencia\"><![CDATA[7]]>"));
    EXPECT_THAT(pendingAttributes(), HasSubstr("fieldID=\"Group5Quantity\"><![CDATA[1]]>"));
    EXPECT_THAT(pendingAttributes(), testing::Not(HasSubstr("Azul")));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    EXPECT_EQ(ui->boxTexts(), Texts{});
}

TEST_F(PublicationsFlowTest, aMissingStockKeepsTheSellerOnTheValuesPage)
{
    openWizard();
    beginAddition("1");
    click("PublishAssociationNC1", "Forward");
    EXPECT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    ASSERT_EQ(ui->boxes().size(), 1u);
    EXPECT_EQ(ui->boxes()[0].text, "Los valores marcados en verde son obligatorios. Por favor "
                                   "ingreselos antes de proceder");
    EXPECT_EQ(ui->boxes()[0].title, "Error en la entrada de datos");
}

TEST_F(PublicationsFlowTest, valuesTypedAreKeptOnBackAndForward)
{
    openWizard();
    beginAddition("1");
    type("Existencia", "7");
    click("PublishAssociationNC1", "Forward");
    click("PublishSelectMinistore1", "Back");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    EXPECT_EQ(cell("PublishAssociationNC1", "Existencia"), "7");
    click("PublishAssociationNC1", "Forward");
    chooseStore("300");
    click("ConfirmPublication1", "Back");
    ASSERT_EQ(wizard->currentPageKey(), "PublishSelectMinistore");
    chooseStore("300");
    EXPECT_EQ(cell("ConfirmPublication1", "Existencia"), "7");
}

TEST_F(PublicationsFlowTest, aProductWithNothingToTypeNeverShowsTheValuesPage)
{
    openWizard();
    beginAddition("3");
    EXPECT_EQ(wizard->currentPageKey(), "PublishSelectMinistore");
    EXPECT_FALSE(page("PublishAssociationNC1")->isVisible());
}

TEST_F(PublicationsFlowTest, aStoreAtItsLimitIsRedAndStillSelectable)
{
    alreadyPublished("100", 10);
    openWizard();
    beginAddition("3");
    EXPECT_EQ(storeRow("100")->foreground(0).color(), QColor(255, 0, 0));
    EXPECT_EQ(storeRow("200")->foreground(0).color(), QColor(255, 0, 0)) << "0 of 0";
    EXPECT_NE(storeRow("300")->foreground(0).color(), QColor(255, 0, 0));
    chooseStore("100");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmPublication");
    EXPECT_EQ(text("ConfirmPublication1", "Text1"), "100 : Andina Hogar");
}

struct PlanCase
{
    const char *name;
    const char *store;
    int counted;
    std::optional<MessageAnswer> answer;
    const char *warning;
    bool written;
};

void PrintTo(const PlanCase &plan, std::ostream *out)
{
    *out << plan.name;
}

class PlanWarningTest : public PublicationsFlowTest, public testing::WithParamInterface<PlanCase>
{
};

TEST_P(PlanWarningTest, comesOnThePublicationThatReachesTheLimit)
{
    const PlanCase &plan = GetParam();
    alreadyPublished(plan.store, plan.counted);
    openWizard();
    beginAddition("3");
    chooseStore(plan.store);
    if (plan.answer)
        ui->queueAnswer(*plan.answer);
    click("ConfirmPublication1", "Accept");

    Texts expected;
    if (*plan.warning)
        expected.push_back(plan.warning);
    EXPECT_EQ(ui->boxTexts(), expected);
    if (*plan.warning) {
        EXPECT_EQ(ui->boxes()[0].title, "Advertencia");
        EXPECT_EQ(ui->boxes()[0].defaultButton, 2);
    }
    EXPECT_EQ(published().size(), static_cast<std::size_t>(plan.counted + (plan.written ? 1 : 0)));
    EXPECT_EQ(pending().size(), plan.written ? 1u : 0u);
    EXPECT_EQ(wizard->currentPageKey(), "Show");
}

INSTANTIATE_TEST_SUITE_P(
    Plans, PlanWarningTest,
    testing::Values(
        PlanCase{"a limit of 10 with 9 counted warns", "100", 9, MessageAnswer::Yes,
                 "El número máximo de productos que pueden ser publicados, según el plan de la "
                 "minitienda, es 10 y se han realizado 9 publicaciones. El resto de las "
                 "publicaciones serán facturadas a parte. Desea continuar?",
                 true},
        PlanCase{"a limit of 10 with 8 counted does not", "100", 8, std::nullopt, "", true},
        PlanCase{"a limit of 0 warns on the first", "200", 0, MessageAnswer::Yes,
                 "El número máximo de productos que pueden ser publicados, según el plan de la "
                 "minitienda, es 0 y se han realizado 0 publicaciones. El resto de las "
                 "publicaciones serán facturadas a parte. Desea continuar?",
                 true},
        PlanCase{"a limit of 0 warns on every one", "200", 3, MessageAnswer::Yes,
                 "El número máximo de productos que pueden ser publicados, según el plan de la "
                 "minitienda, es 0 y se han realizado 3 publicaciones. El resto de las "
                 "publicaciones serán facturadas a parte. Desea continuar?",
                 true},
        PlanCase{"No writes nothing", "100", 9, MessageAnswer::No,
                 "El número máximo de productos que pueden ser publicados, según el plan de la "
                 "minitienda, es 10 y se han realizado 9 publicaciones. El resto de las "
                 "publicaciones serán facturadas a parte. Desea continuar?",
                 false}),
    [](const testing::TestParamInfo<PlanCase> &info) {
        std::string name;
        for (const char *c = info.param.name; *c; ++c)
            name += std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_';
        return name;
    });

// ---------------------------------------------------------------------------------------------
// Modifying and withdrawing.

TEST_F(PublicationsFlowTest, modifyingALocalPublicationReplacesItByANewNumber)
{
    openWizard();
    beginAddition("1");
    type("Existencia", "7");
    click("PublishAssociationNC1", "Forward");
    chooseStore("300");
    click("ConfirmPublication1", "Accept");

    beginModification("1");
    ASSERT_EQ(wizard->currentPageKey(), "PublishAssociationNC");
    EXPECT_EQ(cell("PublishAssociationNC1", "Existencia"), "7");
    type("Existencia", "9");
    click("PublishAssociationNC1", "Forward");
    ASSERT_EQ(wizard->currentPageKey(), "ConfirmPublication");
    EXPECT_EQ(text("ConfirmPublication1", "Label3"), "Confirme la modificación a la publicación");
    EXPECT_EQ(text("ConfirmPublication1", "Text1"), "300 : Andina Tecnología");
    click("ConfirmPublication1", "Accept");

    EXPECT_THAT(published(), ElementsAre("2|1|300|L"));
    EXPECT_THAT(pending(), ElementsAre("2|300|I|0"));
    EXPECT_THAT(pendingAttributes(), HasSubstr("<![CDATA[9]]>"));
    EXPECT_EQ(ui->boxTexts(), Texts{});
}

TEST_F(PublicationsFlowTest, aModificationAfterAWithdrawalIsRefusedAndChangesNothing)
{
    confirmedShirt();
    database->execute(Sql("INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, "
                          "Estado, FechaPublicado) VALUES (4, 1, '100', 'E', "
                          "'2026-02-02 10:00:00')"));
    openWizard();
    beginModification("4");
    type("Existencia", "9");
    click("PublishAssociationNC1", "Forward");
    click("ConfirmPublication1", "Accept");

    EXPECT_EQ(ui->boxTexts(),
              Texts{"Error: -10006: La publicación no puede ser actualizada porque existe una "
                    "operación de eliminación para esta publicación"});
    EXPECT_THAT(published(), ElementsAre("4|1|100|K"));
    EXPECT_THAT(pending(), ElementsAre("4|100|E|0"));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_TRUE(gAppRunning);
}

TEST_F(PublicationsFlowTest, withdrawingALocalPublicationLeavesNothingToSend)
{
    openWizard();
    beginAddition("3");
    chooseStore("300");
    click("ConfirmPublication1", "Accept");
    ASSERT_THAT(published(), ElementsAre("1|3|300|L"));

    beginRemoval("1");
    EXPECT_EQ(text("ConfirmPublication1", "Label3"), "Confirme la despublicación");
    EXPECT_EQ(text("ConfirmPublication1", "Text2"), "3");
    click("ConfirmPublication1", "Accept");
    EXPECT_TRUE(published().empty());
    EXPECT_TRUE(pending().empty());
}

TEST_F(PublicationsFlowTest, withdrawingAfterAModificationReplacesItsRow)
{
    confirmedShirt();
    openWizard();
    beginModification("4");
    type("Existencia", "9");
    click("PublishAssociationNC1", "Forward");
    click("ConfirmPublication1", "Accept");
    ASSERT_THAT(pending(), ElementsAre("4|100|A|0"));

    beginRemoval("4");
    click("ConfirmPublication1", "Accept");
    EXPECT_THAT(published(), ElementsAre("4|1|100|K"));
    EXPECT_THAT(pending(), ElementsAre("4|100|E|0"));
}
