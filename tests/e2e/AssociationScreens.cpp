// Not a test: walks the association wizard over the demo sandbox and photographs each page, for
// a person to look at. Run under an X server: association_screens <folder>; each page is
// written as <folder>/assoc-<n>-<page>.png from the whole screen.

#include "FeriaSimProcess.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/db/Connection.h"
#include "platform/db/EmbeddedDatabase.h"
#include "platform/ui/ScriptedUi.h"
#include "publication/SellerLists.h"
#include "shell/AppState.h"
#include "shell/window/MainWindow.h"
#include "shell/window/Panels.h"
#include "stores/Seller.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <unistd.h>

namespace {

std::string g_folder;
QWidget *g_wizard = nullptr;
int g_shot = 0;

template <class Control> Control *control(const char *page, const char *name)
{
    return g_wizard->findChild<QWidget *>(page)->findChild<Control *>(name);
}

void shoot(const char *name)
{
    QApplication::processEvents();
    QTest::qWait(300);
    const std::string file = g_folder + "/assoc-" + std::to_string(++g_shot) + "-" + name + ".png";
    const std::string command = "xwd -root -silent | convert xwd:- '" + file + "'";
    if (std::system(command.c_str()) != 0)
        std::cerr << "could not photograph " << file << "\n";
}

void clickLine(const char *page, const char *code)
{
    auto *grid = control<QTableWidget>(page, "MSFlexGrid1");
    const auto found = grid->findItems(QString::fromUtf8(code), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    grid->scrollToItem(found.first());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualItemRect(found.first()).center());
}

void clickNode(const char *page, const char *text)
{
    auto *tree = control<QTreeWidget>(page, "TreeView1");
    const auto found =
        tree->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        return;
    tree->scrollToItem(found.first());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(found.first()).center());
}

void press(const char *page, const char *button)
{
    QTest::mouseClick(control<QPushButton>(page, button), Qt::LeftButton);
}

void pick(const char *name, int downs)
{
    auto *grid = control<QWidget>("AssociateZorvantaProperties1", "ZorvantaPropertiesGrid1");
    auto *table = grid->findChild<QTableWidget *>("MSFlexGrid1");
    const auto found = table->findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    const QRect cell = table->visualRect(table->model()->index(found.first()->row(), 1));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::keyClick(table, Qt::Key_Return);
    auto *combo = grid->findChild<QComboBox *>("Combo1");
    for (int n = 0; n < downs; ++n)
        QTest::keyClick(combo, Qt::Key_Down);
}

std::string demoMarketplace()
{
    std::ifstream file(std::string(DEMO_DATA_DIR) + "/marketplace.xml");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: association_screens <folder>\n";
        return 2;
    }
    g_folder = argv[1];
    QApplication app(argc, argv);
    ScriptedUi::install();

    const auto dir = std::filesystem::temp_directory_path() /
                     ("asistente-assoc-screens-" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    std::filesystem::current_path(dir);
    setenv("ASISTENTE_DATA_DIR", dir.c_str(), 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
    createEmbeddedDatabase(embeddedDatabasePath("AsistenteDemo"));
    {
        Connection db;
        db.open("Driver={SQL Server};Server=localhost;Uid=vendedor;Pwd=demo;"
                "Database=AsistenteDemo",
                15);
        db.execute(Sql("INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, "
                       "FechaAsociado) VALUES ('ERP-0496', 'ZP-00192', '<Properties/>"
                       "<VariantProperties><Field fieldID=\"Color\"><![CDATA[Azul]]></Field>"
                       "<Field fieldID=\"Talla\"><![CDATA[L]]></Field></VariantProperties>', "
                       "'2026-03-02 10:00:00')"));
    }
    const auto feria = FeriaSimProcess::withData(demoMarketplace());
    setenv("ASISTENTE_MARKETPLACE_URL", feria->url().c_str(), 1);
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
    registerSellerListLines();
    gAppRunning = true;
    if (feria->url().empty() || !CommerceServerInit() || !QDXGetOperationConfiguration()) {
        std::cerr << "the sandbox did not start\n";
        return 1;
    }

    auto *window = new MainWindow(makeWizardPanel, [] { gSeller->closeSession(); });
    gMainWindow = window;
    window->loadAndShow();
    window->resize(1100, 800);
    window->ShowWizard("Associations");
    g_wizard = window->findChild<QWidget *>("AssociationWizard1");
    QTest::mouseClick(control<QRadioButton>("ShowAssociations1", "Code"), Qt::LeftButton);
    shoot("ShowAssociations");

    press("ShowAssociations1", "Asociar");
    QTest::mouseClick(control<QRadioButton>("AssociateSellerProduct1", "Description"),
                      Qt::LeftButton);
    QTest::keyClicks(control<QLineEdit>("AssociateSellerProduct1", "SearchText"), "Camiseta");
    clickLine("AssociateSellerProduct1", "ERP-0495");
    shoot("AssociateSellerProduct");

    press("AssociateSellerProduct1", "Forward");
    clickNode("AssociateZorvantaProduct1", "Vestuario para toda la familia.");
    clickNode("AssociateZorvantaProduct1", "Camisetas de algodón en todas las tallas.");
    shoot("AssociateZorvantaProduct");

    press("AssociateZorvantaProduct1", "Forward");
    pick("Color", 2);
    shoot("AssociateZorvantaProperties");
    QTest::keyClick(control<QWidget>("AssociateZorvantaProperties1", "ZorvantaPropertiesGrid1")
                        ->findChild<QComboBox *>("Combo1"),
                    Qt::Key_Return);
    pick("Talla", 2);
    QTest::keyClick(control<QWidget>("AssociateZorvantaProperties1", "ZorvantaPropertiesGrid1")
                        ->findChild<QComboBox *>("Combo1"),
                    Qt::Key_Return);
    press("AssociateZorvantaProperties1", "Forward");
    shoot("ConfirmAssociationAddition");

    press("ConfirmAssociationAddition1", "Accept");
    shoot("ShowAssociationsAfterAddition");

    clickLine("ShowAssociations1", "ERP-0496");
    press("ShowAssociations1", "Desasociar");
    shoot("ConfirmAssociationRemoval");

    window->unload();
    gSeller->closeSession();
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
    return 0;
}
