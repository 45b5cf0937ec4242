// Not a test: walks the publication wizard over the sandbox of the publication flows and
// photographs each page, for a person to look at. Run under an X server:
// publication_screens <folder>; each page is written as <folder>/pub-<n>-<page>.png from the
// whole screen.

#include "ScreenWalk.h"

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <iostream>

namespace {

void searchCode(ScreenWalk &walk, const char *page, const char *code)
{
    QTest::mouseClick(walk.control<QRadioButton>(page, "Code"), Qt::LeftButton);
    auto *text = walk.control<QLineEdit>(page, "SearchText");
    text->selectAll();
    QTest::keyClicks(text, code);
}

void type(ScreenWalk &walk, const char *name, const char *keys)
{
    auto *table = walk.control<QWidget>("PublishAssociationNC1", "ZorvantaPropertiesGrid1")
                      ->findChild<QTableWidget *>("MSFlexGrid1");
    const auto found = table->findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty())
        return;
    const QRect cell = table->visualRect(table->model()->index(found.first()->row(), 1));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::keyClick(table, Qt::Key_Return);
    auto *editor = walk.control<QLineEdit>("PublishAssociationNC1", "Text1");
    editor->selectAll();
    QTest::keyClicks(editor, keys);
    QTest::keyClick(editor, Qt::Key_Return);
}

void chooseStore(ScreenWalk &walk, const char *id)
{
    auto *list = walk.control<QTreeWidget>("PublishSelectMinistore1", "ListView1");
    const auto found = list->findItems(id, Qt::MatchExactly, 0);
    if (found.isEmpty())
        return;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.first()).center());
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: publication_screens <folder>\n";
        return 2;
    }
    QApplication app(argc, argv);
    ScreenWalk walk(argv[1], "pub", std::string(PUBLICATIONS_DATA_DIR) + "/marketplace.xml",
                    {Sql("INSERT INTO WITIENDAS VALUES ('100', 'Andina Hogar', 'DV-01'), "
                         "('200', 'Andina Deportes', 'DV-02')"),
                     Sql("INSERT INTO WIPRODASOC VALUES "
                         "(1, 'ERP-0495', 'ZP-1', '<Properties/><VariantProperties>"
                         "<Field fieldID=\"Color\"><![CDATA[Azul]]></Field><Field "
                         "fieldID=\"Talla\"><![CDATA[M]]></Field></VariantProperties>', "
                         "'2026-01-10 09:00:00'), "
                         "(2, 'ERP-0496', 'ZP-2', '<Properties/><VariantProperties>"
                         "<Field fieldID=\"Color\"><![CDATA[Rojo]]></Field><Field "
                         "fieldID=\"Talla\"><![CDATA[L]]></Field></VariantProperties>', "
                         "'2026-01-10 09:05:00')")});
    if (!walk.started())
        return 1;
    walk.open("Publications", "PublicationWizard1");
    walk.shoot("ShowPublications-empty");

    walk.follow({
        {"ShowPublications1", "Publicar",
         [&] {
             searchCode(walk, "PublishAssociatedProduct1", "ERP-0");
             walk.clickLine("PublishAssociatedProduct1", "ERP-0495");
         },
         "PublishAssociatedProduct"},
        {"PublishAssociatedProduct1", "Forward", [&] { type(walk, "Existencia", "7"); },
         "PublishAssociationNC"},
        {"PublishAssociationNC1", "Forward", [&] { chooseStore(walk, "100"); },
         "PublishSelectMinistore"},
        {"PublishSelectMinistore1", "Forward", {}, "ConfirmPublication-addition"},
        {"ConfirmPublication1", "Accept", [&] { searchCode(walk, "ShowPublications1", "ERP-0"); },
         "ShowPublications"},
        {"ShowPublications1", "Modificar", {}, "PublishAssociationNC-modification"},
        {"PublishAssociationNC1", "Forward", {}, "ConfirmPublication-modification"},
        {"ConfirmPublication1", "Cancel", [&] { searchCode(walk, "ShowPublications1", "ERP-0"); },
         nullptr},
        {"ShowPublications1", "Despublicar", {}, "ConfirmPublication-removal"},
    });
    return 0;
}
