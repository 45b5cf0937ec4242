// The ERP search as a page uses it: the tree that grows as the user walks it, the text search
// run on every key, the store filter of the published and pending lists.

#include "ErpSandbox.h"
#include "SearchEditorsTest.h"
#include "catalogue/ProductLine.h"
#include "catalogue/SellerProduct.h"
#include "editors/SellerSearch.h"
#include "platform/db/Connection.h"
#include "shell/AppState.h"
#include "stores/ZorvantaMinistore.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Ferretería holds two products and a branch two levels deep; Hogar holds more than a page.
const std::string kCatalogue =
    "<Categoria id='DC-1' nombre='Ferretería'>" + ErpSandbox::products(2, "F-", "Martillo") +
    "<Categoria id='DC-11' nombre='Herramientas'>" + ErpSandbox::products(2, "H-", "Llave") +
    "<Categoria id='DC-111' nombre='Taladros'>" + ErpSandbox::products(3, "T-", "Taladro") +
    "</Categoria></Categoria></Categoria>"
    "<Categoria id='DC-2' nombre='Hogar'>" + ErpSandbox::products(60, "P-", "Olla") +
    "</Categoria>";

class SellerSearchTest : public SearchEditorsTest
{
protected:
    void open(const std::string &catalogue = kCatalogue, const std::string &faults = {})
    {
        erp->writeData(catalogue, faults);
        search = std::make_unique<SellerSearch>();
        search->setObjectName("SellerSearch1");
        search->resize(600, search->height());
        search->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(search.get()));
        changed = std::make_unique<QSignalSpy>(search.get(), &SellerSearch::Changed);
        erpCalls->calls.clear();
    }
    void TearDown() override
    {
        search.reset();
        SearchEditorsTest::TearDown();
    }

    template <class Control> Control *control(const char *name) const
    {
        auto *found = search->findChild<Control *>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QTreeWidget &tree() const { return *control<QTreeWidget>("TreeView1"); }
    void clickOption(const char *name)
    {
        QTest::mouseClick(control<QRadioButton>(name), Qt::LeftButton);
    }
    /// The codes of the products of the present page, as the page draws them.
    Texts page() const
    {
        Texts codes;
        if (const auto lines = search->products())
            for (const auto &line : *lines)
                codes.push_back(line->sellerProduct()->dovelID());
        return codes;
    }
    void linkDeposit(const std::string &storeId, const std::string &depositId)
    {
        erp->execute("INSERT INTO WITIENDAS VALUES ('" + storeId + "', 'x', '" + depositId +
                     "')");
    }

    std::unique_ptr<SellerSearch> search;
    std::unique_ptr<QSignalSpy> changed;
};

TEST_F(SellerSearchTest, theTreeGrowsOneLevelPerVisitWithoutDuplicates)
{
    open();
    // It opens on the tree, the first category visited.
    EXPECT_TRUE(control<QRadioButton>("Category")->isChecked());
    EXPECT_FALSE(control<QLineEdit>("SearchText")->isVisible());
    EXPECT_FALSE(control<QComboBox>("Combo1")->isVisible());
    EXPECT_THAT(treeText(tree()), ElementsAre("Ferretería", "  Herramientas", "Hogar"));
    EXPECT_EQ(tree().currentItem()->text(0).toStdString(), "Ferretería");
    EXPECT_THAT(page(), ElementsAre("F-0001", "F-0002"));

    tree().expandItem(node(tree(), "Ferretería"));
    click(tree(), node(tree(), "Herramientas"));
    EXPECT_THAT(treeText(tree()),
                ElementsAre("Ferretería", "  Herramientas", "    Taladros", "Hogar"));
    EXPECT_THAT(page(), ElementsAre("H-0001", "H-0002"));

    // A second visit asks the ERP again from the first page and draws nothing twice.
    click(tree(), node(tree(), "Herramientas"));
    EXPECT_THAT(treeText(tree()),
                ElementsAre("Ferretería", "  Herramientas", "    Taladros", "Hogar"));
    EXPECT_THAT(page(), ElementsAre("H-0001", "H-0002"));
    EXPECT_THAT(erpCalls->calls, ElementsAre("category DC-1 type 0 store ",
                                             "category DC-11 type 0 store ",
                                             "category DC-11 type 0 store "));
    EXPECT_EQ(changed->count(), 3);
}

TEST_F(SellerSearchTest, aCategoryOfMoreThanAPageIsReadPageByPage)
{
    open();
    click(tree(), node(tree(), "Hogar"));
    EXPECT_EQ(page().size(), 50u);
    EXPECT_FALSE(search->allRead());
    search->GetMore();
    EXPECT_EQ(page().size(), 10u);
    EXPECT_EQ(page().back(), "P-0060");
    // The ERP tells the end of a category only by a page with nothing left.
    EXPECT_FALSE(search->allRead());
    search->GetMore();
    EXPECT_THAT(page(), testing::IsEmpty());
    EXPECT_TRUE(search->allRead());
}

TEST_F(SellerSearchTest, anErpWithNoCategoriesOpensOnTheCodeSearch)
{
    open(ErpSandbox::products(3, "R-", "Suelto"));
    EXPECT_FALSE(control<QRadioButton>("Category")->isEnabled());
    EXPECT_TRUE(control<QRadioButton>("Code")->isChecked());
    EXPECT_FALSE(tree().isVisible());
    EXPECT_TRUE(control<QLineEdit>("SearchText")->isVisible());
    // The empty text is searched as well.
    EXPECT_THAT(page(), ElementsAre("R-0001", "R-0002", "R-0003"));
    EXPECT_TRUE(search->allRead());
}

TEST_F(SellerSearchTest, switchingToReferenceWithAnEmptyTextAsksForAnEmptyString)
{
    open();
    clickOption("Reference");
    EXPECT_FALSE(tree().isVisible());
    EXPECT_TRUE(control<QLineEdit>("SearchText")->isVisible());
    EXPECT_THAT(erpCalls->calls, ElementsAre("search 3 '' type 0 store "));
    EXPECT_EQ(page().size(), 50u);
    EXPECT_EQ(changed->count(), 1);
}

TEST_F(SellerSearchTest, everyKeyTypedAsksTheErp)
{
    open();
    clickOption("Code");
    erpCalls->calls.clear();
    auto *text = control<QLineEdit>("SearchText");
    QTest::keyClicks(text, "T-0");
    EXPECT_THAT(erpCalls->calls,
                ElementsAre("search 1 'T' type 0 store ", "search 1 'T-' type 0 store ",
                            "search 1 'T-0' type 0 store "));
    EXPECT_THAT(page(), ElementsAre("T-0001", "T-0002", "T-0003"));
    QTest::keyClick(text, Qt::Key_Backspace);
    EXPECT_EQ(erpCalls->calls.back(), "search 1 'T-' type 0 store ");
    // The hourglass for each query, the normal pointer after it.
    const std::vector<int> &cursor = ui->cursorHistory();
    ASSERT_GE(cursor.size(), 2u);
    EXPECT_THAT(std::vector<int>(cursor.end() - 2, cursor.end()), ElementsAre(11, 0));

    // A new option starts from an empty text; the description is matched anywhere.
    clickOption("Description");
    erpCalls->calls.clear();
    QTest::keyClicks(text, "ladr");
    EXPECT_EQ(erpCalls->calls.back(), "search 2 'ladr' type 0 store ");
    EXPECT_THAT(page(), ElementsAre("T-0001", "T-0002", "T-0003"));
}

TEST_F(SellerSearchTest, aTextSearchOfMoreThanAPageIsReadPageByPage)
{
    open();
    clickOption("Code");
    QTest::keyClicks(control<QLineEdit>("SearchText"), "P");
    EXPECT_EQ(page().size(), 50u);
    EXPECT_FALSE(search->allRead());
    search->GetMore();
    EXPECT_EQ(page().size(), 10u);
    EXPECT_TRUE(search->allRead());
}

TEST_F(SellerSearchTest, publishedListsWithNoLinkedStoreReportAndLeaveTheFilterEmpty)
{
    open();
    search->setSearchType(2);
    EXPECT_EQ(control<QComboBox>("Combo1")->count(), 0);
    EXPECT_EQ(search->selectedMinistore(), nullptr);
    // Pointing the filter at a first store it does not have is a runtime error: fatal.
    ASSERT_FALSE(loggedErrors().empty());
    EXPECT_EQ(loggedErrors().front().rfind("Error: 5 (SellerSearch:fillMinistores): ", 0), 0u)
        << loggedErrors().front();
    EXPECT_THAT(ui->boxTexts(), testing::Contains("La aplicación será cerrada"));
}

TEST_F(SellerSearchTest, theStoreFilterNarrowsThePublishedAndPendingLists)
{
    startMarketplace();
    linkDeposit("200", "DV-02");
    linkDeposit("100", "DV-01");
    open();
    clickOption("Code");
    QSignalSpy resized(search.get(), &SellerSearch::SizeChanged);
    search->setSearchType(2);
    auto *stores = control<QComboBox>("Combo1");
    ASSERT_EQ(stores->count(), 2);
    // In the order of the deposits, the first chosen.
    EXPECT_EQ(stores->itemText(0).toStdString(), "Andina Hogar y Cocina");
    EXPECT_EQ(stores->currentIndex(), 0);
    EXPECT_EQ(erpCalls->calls.back(), "search 1 '' type 2 store 100");
    EXPECT_EQ(resized.count(), 1);
    // The filter lies under the text and its caption, inside the control.
    EXPECT_GT(stores->geometry().top(), control<QLineEdit>("SearchText")->geometry().bottom());
    EXPECT_GT(stores->geometry().top(), control<QLabel>("Label2")->geometry().top());
    EXPECT_LE(stores->geometry().bottom(), search->height());
    // Squeezed into a narrow page, the longest store name still shows whole.
    search->resize(150, search->height());
    QApplication::processEvents();
    EXPECT_GT(stores->width(), stores->fontMetrics().horizontalAdvance(stores->itemText(1)))
        << stores->itemText(1).toStdString();

    stores->setFocus();
    QTest::keyClick(stores, Qt::Key_Down);
    EXPECT_EQ(search->selectedMinistore()->id(), "200");
    EXPECT_EQ(erpCalls->calls.back(), "search 1 '' type 2 store 200");

    // The same value keeps the chosen store but searches again.
    erpCalls->calls.clear();
    search->setSearchType(2);
    EXPECT_EQ(stores->currentIndex(), 1);
    EXPECT_THAT(erpCalls->calls, ElementsAre("search 1 '' type 2 store 200"));

    // The other lists hide the filter and go on sending the last store.
    search->setSearchType(1);
    EXPECT_FALSE(stores->isVisible());
    EXPECT_EQ(erpCalls->calls.back(), "search 1 '' type 1 store 200");
    EXPECT_THAT(loggedErrors(), IsEmpty());
}

TEST_F(SellerSearchTest, aFailingErpCallEndsInTheHandler)
{
    open(kCatalogue, "<Falla funcion='BusquedaProductosIndividual' codigo='9999'/>");
    clickOption("Reference");
    EXPECT_THAT(loggedErrors(),
                ElementsAre("Error: -11001 (ProductBrowser:getMore): La función "
                            "APIDovel.BusquedaProductosIndividual retornó con error 9999"));
    EXPECT_FALSE(gAppRunning);
}

} // namespace
