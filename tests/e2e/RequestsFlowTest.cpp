#include "AssistantSandbox.h"
#include "ReceivedRequests.h"
#include "gateways/QDX.h"
#include "shell/AppState.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"
#include "wizards/requests/RequestWizard.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>

#include <fstream>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char *kRoot = "Todas las categorías de la feria.";
constexpr const char *kBooks = "Narrativa de autores latinoamericanos.";
constexpr const char *kStationery = "Cuadernos, lápices y archivo.";
constexpr const char *kLibrary = "Libros y artículos de oficina.";

/// The demo seller's assistant, opened on the request wizard and driven through its widgets;
/// what the marketplace received is read back from feria-sim.
class RequestsFlowTest : public AssistantSandbox
{
protected:
    void SetUp() override
    {
        AssistantSandbox::SetUp();
        ASSERT_TRUE(CommerceServerInit());
        ASSERT_TRUE(QDXGetOperationConfiguration());
        m_before = receivedRequests(std::getenv("ASISTENTE_MARKETPLACE_URL")).size();
        window = new MainWindow(makeWizardPanel, [] { gSeller->closeSession(); });
        gMainWindow = window;
        window->loadAndShow();
        window->ShowWizard("Request");
        wizard = window->findChild<RequestWizard *>("RequestWizard1");
        ASSERT_NE(wizard, nullptr);
    }
    void TearDown() override
    {
        if (gMainWindow)
            gMainWindow->unload();
        AssistantSandbox::TearDown();
    }

    std::vector<ReceivedRequest> receivedNow() const
    {
        auto all = receivedRequests(std::getenv("ASISTENTE_MARKETPLACE_URL"));
        return {all.begin() + static_cast<std::ptrdiff_t>(m_before), all.end()};
    }

    QWidget *page(const char *name) const { return wizard->findChild<QWidget *>(name); }
    /// The page on show.
    QWidget *current() const
    {
        static const std::map<std::string, const char *> pages = {
            {"Show", "RequestMenu1"},
            {"GetCategory", "RequestGetCategory1"},
            {"GetCategoryName", "RequestGetCategoryName1"},
            {"GetProduct", "RequestGetProduct1"},
            {"GetName", "RequestGetName1"},
            {"GetProperties", "RequestGetProperties1"},
            {"GetImage", "RequestGetImage1"},
            {"Confirmation", "RequestConfirmation1"}};
        return page(pages.at(wizard->currentPageKey()));
    }
    template <class Widget> Widget *control(const char *name) const
    {
        Widget *found = current()->findChild<Widget *>(name);
        EXPECT_NE(found, nullptr) << name << " on " << wizard->currentPageKey();
        return found;
    }
    /// Clicks a button of the page on show: Category, Product, Add, Remove, Search, or one of
    /// the bar's Cancel, Back, Forward, Accept.
    void click(const char *name) { QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton); }
    void next() { click("Forward"); }
    void back() { click("Back"); }
    bool enabled(const char *name) { return control<QPushButton>(name)->isEnabled(); }
    /// Types into a text box of the page on show, after emptying it.
    void type(const char *name, const char *text)
    {
        QLineEdit *box = control<QLineEdit>(name);
        box->clear();
        QTest::keyClicks(box, QString::fromUtf8(text));
    }
    std::string text(const char *name) { return control<QLineEdit>(name)->text().toStdString(); }

    /// Clicks the node of the category tree that shows `description`, opening its parent.
    void clickCategory(const char *description)
    {
        auto *tree = control<QTreeWidget>("TreeView1");
        const auto found = tree->findItems(QString::fromUtf8(description),
                                           Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << description;
        for (QTreeWidgetItem *up = found[0]->parent(); up; up = up->parent())
            up->setExpanded(true);
        tree->scrollToItem(found[0]);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(found[0]).center());
    }
    /// The rows of a list of the page on show, columns joined with "|".
    std::vector<std::string> rows(const char *list)
    {
        auto *view = control<QTreeWidget>(list);
        std::vector<std::string> texts;
        for (int row = 0; row < view->topLevelItemCount(); ++row) {
            std::string line = view->topLevelItem(row)->text(0).toStdString();
            for (int column = 1; column < view->columnCount(); ++column)
                line += "|" + view->topLevelItem(row)->text(column).toStdString();
            texts.push_back(line);
        }
        return texts;
    }
    void clickRow(const char *list, const char *first)
    {
        auto *view = control<QTreeWidget>(list);
        const auto found = view->findItems(QString::fromUtf8(first), Qt::MatchExactly, 0);
        ASSERT_FALSE(found.isEmpty()) << first;
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualItemRect(found.first()).center());
    }

    QTableWidget *grid() { return control<QTableWidget>("MSFlexGrid1"); }
    int gridRow(const std::string &name)
    {
        for (int row = 0; row < grid()->rowCount(); ++row)
            if (grid()->item(row, 0) && grid()->item(row, 0)->text().toStdString() == name)
                return row;
        ADD_FAILURE() << "no row " << name;
        return 0;
    }
    /// The grid's rows as "name=value".
    std::vector<std::string> gridRows()
    {
        std::vector<std::string> texts;
        for (int row = 0; row < grid()->rowCount(); ++row) {
            const QTableWidgetItem *name = grid()->item(row, 0);
            const QTableWidgetItem *value = grid()->item(row, 1);
            if (name && !name->text().isEmpty())
                texts.push_back(name->text().toStdString() + "=" +
                                (value ? value->text().toStdString() : ""));
        }
        return texts;
    }
    void clickCell(const std::string &name)
    {
        const QRect rect = grid()->visualRect(grid()->model()->index(gridRow(name), 1));
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, rect.center());
    }
    /// Opens the value of a property, types over it and closes it with Enter, as a seller does.
    void typeValue(const std::string &name, const char *value)
    {
        clickCell(name);
        QTest::keyClick(grid(), Qt::Key_Return);
        auto *editor = current()->findChild<QLineEdit *>("Text1");
        ASSERT_TRUE(editor && editor->isVisible()) << name;
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromUtf8(value));
        QTest::keyClick(editor, Qt::Key_Return);
    }
    /// The seller's answer to the next name dialog: Aceptar with the name, or Cancelar.
    void willName(const char *name, bool accept = true)
    {
        ui->queueDialog([=](QDialog &dialog) {
            QTest::keyClicks(dialog.findChild<QLineEdit *>("Text1"), QString::fromUtf8(name));
            dialog.findChild<QPushButton *>(accept ? "Aceptar" : "Cancelar")->click();
            return accept;
        });
    }

    /// From the menu to the properties page of a product based on pdLibro under "Libros".
    void bookUpToProperties(const char *name)
    {
        click("Product");
        clickCategory(kLibrary);
        clickCategory(kBooks);
        next();
        clickRow("ListView1", "pdLibro");
        next();
        type("Text1", name);
        next();
        ASSERT_EQ(wizard->currentPageKey(), "GetProperties");
    }

    MainWindow *window = nullptr;
    RequestWizard *wizard = nullptr;

private:
    std::size_t m_before = 0;
};

} // namespace

TEST_F(RequestsFlowTest, aProductUnderAnExistingCategoryGoesWithItsFieldsAndPicture)
{
    click("Product");
    ASSERT_EQ(wizard->currentPageKey(), "GetCategory");
    clickCategory(kLibrary);
    clickCategory(kBooks);
    next();
    ASSERT_EQ(wizard->currentPageKey(), "GetProduct");
    EXPECT_THAT(rows("ListView1"), ElementsAre("(Producto vacío)|", "pdLibro|"));
    clickRow("ListView1", "pdLibro");
    EXPECT_THAT(rows("ListView2"), testing::Contains("Autor"));
    next();
    type("Text1", "Poemas reunidos");
    next();
    typeValue("Autor", "Gabriela Mistral");
    willName("Dedicatoria");
    click("Add");
    next();

    ASSERT_EQ(wizard->currentPageKey(), "GetImage");
    std::ofstream(workDir / "portada.jpg", std::ios::binary) << "GIF89a";
    ui->queueFileName((workDir / "portada.jpg").string());
    click("Search");
    EXPECT_EQ(text("Text1"), (workDir / "portada.jpg").string());
    next();

    ASSERT_EQ(wizard->currentPageKey(), "Confirmation");
    EXPECT_EQ(control<QLabel>("Label1")->text().toStdString(),
              "Confirmación de solicitud de nuevo producto");
    EXPECT_EQ(text("Text1"), "Libros");
    EXPECT_FALSE(control<QLineEdit>("Text2")->isVisible());
    EXPECT_EQ(text("Text3"), "Poemas reunidos");
    EXPECT_THAT(rows("ListView1"), testing::IsSupersetOf({"Autor|Gabriela Mistral",
                                                          "Dedicatoria|"}));
    EXPECT_FALSE(enabled("Forward"));
    click("Accept");

    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Solicitud enviada exitosamente"});
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    const auto received = receivedNow();
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0].operation, "RequestNewProduct");
    EXPECT_EQ(received[0].category, "ZC-510");
    EXPECT_THAT(received[0].text,
                HasSubstr("<Field fieldID=\"Autor\"><![CDATA[Gabriela Mistral]]></Field>"));
    EXPECT_THAT(received[0].text,
                HasSubstr("<Field fieldID=\"|newField|Dedicatoria\"><![CDATA[]]></Field>"
                          "</Product><ImageType>JPG</ImageType>"));
    EXPECT_THAT(received[0].text, HasSubstr("dt:dt=\"bin.base64\">R0lGODlh</Image>"));
}

TEST_F(RequestsFlowTest, aNewCategoryUnderTheRootWithTheEmptyProductSkipsThePicture)
{
    click("Category");
    next(); // the root, as the tree first shows it
    ASSERT_EQ(wizard->currentPageKey(), "GetCategoryName");
    type("Text1", "Acuarios");
    next();
    EXPECT_EQ(rows("ListView1").front(), "(Producto vacío)|");
    next();
    type("Text1", "Pecera de vidrio");
    next();
    EXPECT_FALSE(enabled("Remove")) << "no definition, no fields";
    next();

    ASSERT_EQ(wizard->currentPageKey(), "Confirmation");
    EXPECT_EQ(control<QLabel>("Label1")->text().toStdString(),
              "Confirmación de solicitud de categoría");
    EXPECT_EQ(text("Text1"), "Feria Nubalia");
    EXPECT_TRUE(control<QLineEdit>("Text2")->isVisible());
    EXPECT_EQ(text("Text2"), "Acuarios");
    EXPECT_EQ(text("Text3"), "Pecera de vidrio");
    back();
    EXPECT_EQ(wizard->currentPageKey(), "GetProperties");
    next();
    click("Accept");

    EXPECT_THAT(receivedNow(),
                ElementsAre(ReceivedRequest{"RequestNewCategory", "100", "", "Acuarios"},
                            ReceivedRequest{"RequestNewProductDef", "100", "",
                                            "<?xml version='1.0' encoding='ISO-8859-1'?>"
                                            "<RequestNewProductDef><StoreID>100</StoreID>"
                                            "<Name>Pecera de vidrio</Name><Fields/>"
                                            "</RequestNewProductDef>"}));
    EXPECT_EQ(wizard->currentPageKey(), "Show");
}

TEST_F(RequestsFlowTest, backRetracesThePagesOfEachKindOfRequest)
{
    bookUpToProperties("Poemas");
    next();
    next();
    ASSERT_EQ(wizard->currentPageKey(), "Confirmation");
    std::vector<std::string> visited;
    while (wizard->currentPageKey() != "Show") {
        back();
        visited.push_back(wizard->currentPageKey());
    }
    EXPECT_THAT(visited, ElementsAre("GetImage", "GetProperties", "GetName", "GetProduct",
                                     "GetCategory", "Show"));

    click("Category");
    next();
    next();
    back();
    EXPECT_EQ(wizard->currentPageKey(), "GetCategoryName");
    back();
    EXPECT_EQ(wizard->currentPageKey(), "GetCategory");
}

TEST_F(RequestsFlowTest, theOtherButtonOfTheMenuDiscardsTheRequestAndTheSameOneResumesIt)
{
    click("Category");
    next();
    type("Text1", "Acuarios");
    next();
    back();
    back();
    back();
    ASSERT_EQ(wizard->currentPageKey(), "Show");
    click("Category");
    next();
    EXPECT_EQ(text("Text1"), "Acuarios") << "the same button resumes the request";
    back();
    back();

    click("Product");
    EXPECT_EQ(wizard->operation()->operationType(), "ProductRequest");
    back();
    click("Category");
    next();
    EXPECT_EQ(text("Text1"), "") << "the category request was discarded";
}

TEST_F(RequestsFlowTest, anotherCategoryEmptiesTheFieldsAndKeepsTheNames)
{
    bookUpToProperties("Poemas");
    typeValue("Autor", "Borges");
    next();
    back();
    EXPECT_THAT(gridRows(), testing::Contains("Autor=Borges")) << "Next wrote the field";
    back();
    back();
    back();
    ASSERT_EQ(wizard->currentPageKey(), "GetCategory");
    clickCategory(kStationery);
    next();
    next();
    EXPECT_EQ(text("Text1"), "Poemas");
    next();
    EXPECT_THAT(gridRows(), testing::Contains("Autor="));
}

TEST_F(RequestsFlowTest, backDropsWhatWasTypedSinceTheLastNext)
{
    bookUpToProperties("Poemas");
    typeValue("Autor", "Neruda");
    next();
    back();
    typeValue("Autor", "Parra");
    back();
    next();
    EXPECT_THAT(gridRows(), testing::Contains("Autor=Neruda"));
}

TEST_F(RequestsFlowTest, anEmptyProductNameReachesTheConfirmationAndCancelAsksFirst)
{
    click("Product");
    next();
    next();
    next();
    next();
    ASSERT_EQ(wizard->currentPageKey(), "Confirmation");
    EXPECT_EQ(text("Text3"), "");

    ui->queueAnswer(MessageAnswer::No);
    click("Cancel");
    EXPECT_EQ(wizard->currentPageKey(), "Confirmation");
    ui->queueAnswer(MessageAnswer::Yes);
    click("Cancel");
    EXPECT_EQ(wizard->currentPageKey(), "Show");
    EXPECT_EQ(wizard->operation(), nullptr);
    ASSERT_EQ(ui->boxes().size(), 2u);
    EXPECT_EQ(ui->boxes()[0].text, "Desea abortar la operación?");
    EXPECT_EQ(ui->boxes()[0].title, "Confirmación");
    EXPECT_EQ(ui->boxes()[0].defaultButton, 2);
    EXPECT_TRUE(receivedNow().empty());
}

TEST_F(RequestsFlowTest, removingTheLastFieldDisablesRemoveUntilAnAddition)
{
    click("Product");
    next();
    next();
    next();
    ASSERT_EQ(wizard->currentPageKey(), "GetProperties");
    EXPECT_FALSE(enabled("Remove"));

    willName("Color");
    click("Add");
    EXPECT_TRUE(enabled("Remove"));
    willName("color");
    click("Add");
    EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Este nombre ya existe."});
    EXPECT_EQ(ui->boxes()[0].title, "Error en nombre de propiedad");
    willName("Talla", false);
    click("Add");
    EXPECT_THAT(gridRows(), ElementsAre("Color="));

    clickCell("Color");
    click("Remove");
    EXPECT_THAT(gridRows(), testing::IsEmpty());
    EXPECT_FALSE(enabled("Remove"));
    back();
    next();
    EXPECT_FALSE(enabled("Remove")) << "coming back does not enable it";
    willName("Talla");
    click("Add");
    EXPECT_TRUE(enabled("Remove"));
    EXPECT_EQ(ui->dialogsShown().size(), 4u);
}
