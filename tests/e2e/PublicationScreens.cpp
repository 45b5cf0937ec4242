// Not a test: walks the publication wizard over the sandbox of the publication flows and
// photographs each page, for a person to look at. Run under an X server:
// publication_screens <folder>; each page is written as <folder>/pub-<n>-<page>.png from the
// whole screen.

#include "FeriaSimProcess.h"
#include "editors/ProductListGrid.h"
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
    const std::string file = g_folder + "/pub-" + std::to_string(++g_shot) + "-" + name + ".png";
    const std::string command = "xwd -root -silent | convert xwd:- '" + file + "'";
    if (std::system(command.c_str()) != 0)
        std::cerr << "could not photograph " << file << "\n";
}

void clickLine(const char *page, const char *code)
{
    auto *grid = control<ProductListGrid>(page, "MSFlexGrid1");
    const auto found = grid->findItems(QString::fromUtf8(code), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    grid->scrollToItem(found.first());
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualItemRect(found.first()).center());
}

void press(const char *page, const char *button)
{
    QTest::mouseClick(control<QPushButton>(page, button), Qt::LeftButton);
}

void searchCode(const char *page, const char *code)
{
    QTest::mouseClick(control<QRadioButton>(page, "Code"), Qt::LeftButton);
    auto *text = control<QLineEdit>(page, "SearchText");
    text->selectAll();
    QTest::keyClicks(text, code);
}

void type(const char *name, const char *keys)
{
    auto *table = control<QWidget>("PublishAssociationNC1", "ZorvantaPropertiesGrid1")
                      ->findChild<QTableWidget *>("MSFlexGrid1");
    const auto found = table->findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    const QRect cell = table->visualRect(table->model()->index(found.first()->row(), 1));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::keyClick(table, Qt::Key_Return);
    auto *editor = control<QLineEdit>("PublishAssociationNC1", "Text1");
    editor->selectAll();
    QTest::keyClicks(editor, keys);
    QTest::keyClick(editor, Qt::Key_Return);
}

void chooseStore(const char *id)
{
    auto *list = control<QTreeWidget>("PublishSelectMinistore1", "ListView1");
    const auto found = list->findItems(id, Qt::MatchExactly, 0);
    if (found.isEmpty())
        return;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.first()).center());
}

std::string publicationsMarketplace()
{
    std::ifstream file(std::string(PUBLICATIONS_DATA_DIR) + "/marketplace.xml");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: publication_screens <folder>\n";
        return 2;
    }
    g_folder = argv[1];
    QApplication app(argc, argv);
    ScriptedUi::install();

    const auto dir = std::filesystem::temp_directory_path() /
                     ("asistente-pub-screens-" + std::to_string(getpid()));
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
        db.execute(Sql("INSERT INTO WITIENDAS VALUES ('100', 'Andina Hogar', 'DV-01'), "
                       "('200', 'Andina Deportes', 'DV-02')"));
        db.execute(Sql("INSERT INTO WIPRODASOC VALUES "
                       "(1, 'ERP-0495', 'ZP-1', '<Properties/><VariantProperties>"
                       "<Field fieldID=\"Color\"><![CDATA[Azul]]></Field><Field "
                       "fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>', "
                       "'2026-01-10 09:00:00'), "
                       "(2, 'ERP-0496', 'ZP-2', '<Properties/><VariantProperties>"
                       "<Field fieldID=\"Color\"><![CDATA[Rojo]]></Field><Field "
                       "fieldID=\"Talla\"><![CDATA[L]]></Field></VariantProperties>', "
                       "'2026-01-10 09:05:00')"));
    }
    const auto feria = FeriaSimProcess::withData(publicationsMarketplace());
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
    window->ShowWizard("Publications");
    g_wizard = window->findChild<QWidget *>("PublicationWizard1");
    shoot("ShowPublications-empty");

    press("ShowPublications1", "Publicar");
    searchCode("PublishAssociatedProduct1", "ERP-0");
    clickLine("PublishAssociatedProduct1", "ERP-0495");
    shoot("PublishAssociatedProduct");

    press("PublishAssociatedProduct1", "Forward");
    type("Existencia", "7");
    shoot("PublishAssociationNC");

    press("PublishAssociationNC1", "Forward");
    chooseStore("100");
    shoot("PublishSelectMinistore");

    press("PublishSelectMinistore1", "Forward");
    shoot("ConfirmPublication-addition");

    press("ConfirmPublication1", "Accept");
    searchCode("ShowPublications1", "ERP-0");
    shoot("ShowPublications");

    press("ShowPublications1", "Modificar");
    shoot("PublishAssociationNC-modification");
    press("PublishAssociationNC1", "Forward");
    shoot("ConfirmPublication-modification");
    press("ConfirmPublication1", "Cancel");

    searchCode("ShowPublications1", "ERP-0");
    press("ShowPublications1", "Despublicar");
    shoot("ConfirmPublication-removal");

    window->unload();
    gSeller->closeSession();
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
    return 0;
}
