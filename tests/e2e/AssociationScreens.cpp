// Not a test: walks the association wizard over the demo sandbox and photographs each page, for
// a person to look at. Run under an X server: association_screens <folder>; each page is
// written as <folder>/assoc-<n>-<page>.png from the whole screen.

#include "ScreenWalk.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <iostream>

namespace {

void clickNode(ScreenWalk &walk, const char *text)
{
    auto *tree = walk.control<QTreeWidget>("AssociateZorvantaProduct1", "TreeView1");
    const auto found =
        tree->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        return;
    tree->scrollToItem(found.first());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                      tree->visualItemRect(found.first()).center());
}

/// Opens the value list of the variant property `name` and moves `downs` values down it.
QComboBox *pick(ScreenWalk &walk, const char *name, int downs)
{
    auto *grid = walk.control<QWidget>("AssociateZorvantaProperties1", "ZorvantaPropertiesGrid1");
    auto *table = grid->findChild<QTableWidget *>("MSFlexGrid1");
    auto *combo = grid->findChild<QComboBox *>("Combo1");
    const auto found = table->findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty())
        return combo;
    const QRect cell = table->visualRect(table->model()->index(found.first()->row(), 1));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::keyClick(table, Qt::Key_Return);
    for (int n = 0; n < downs; ++n)
        QTest::keyClick(combo, Qt::Key_Down);
    return combo;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::cerr << "usage: association_screens <folder>\n";
        return 2;
    }
    QApplication app(argc, argv);
    ScreenWalk walk(argv[1], "assoc", std::string(DEMO_DATA_DIR) + "/marketplace.xml",
                    {Sql("INSERT INTO WIPRODASOC (IdPrdDovel, IdPrdZorvanta, Atributos, "
                         "FechaAsociado) VALUES ('ERP-0496', 'ZP-00192', '<Properties/>"
                         "<VariantProperties><Field fieldID=\"Color\"><![CDATA[Azul]]></Field>"
                         "<Field fieldID=\"Talla\"><![CDATA[L]]></Field></VariantProperties>', "
                         "'2026-03-02 10:00:00')")});
    if (!walk.started())
        return 1;
    walk.open("Associations", "AssociationWizard1");
    QTest::mouseClick(walk.control<QRadioButton>("ShowAssociations1", "Code"), Qt::LeftButton);
    walk.shoot("ShowAssociations");

    QComboBox *values = nullptr;
    walk.follow({
        {"ShowAssociations1", "Asociar",
         [&] {
             QTest::mouseClick(walk.control<QRadioButton>("AssociateSellerProduct1", "Description"),
                               Qt::LeftButton);
             QTest::keyClicks(walk.control<QLineEdit>("AssociateSellerProduct1", "SearchText"),
                              "Camiseta");
             walk.clickLine("AssociateSellerProduct1", "ERP-0495");
         },
         "AssociateSellerProduct"},
        {"AssociateSellerProduct1", "Forward",
         [&] {
             clickNode(walk, "Vestuario para toda la familia.");
             clickNode(walk, "Camisetas de algodón en todas las tallas.");
         },
         "AssociateZorvantaProduct"},
        {"AssociateZorvantaProduct1", "Forward", [&] { values = pick(walk, "Color", 2); },
         "AssociateZorvantaProperties"},
    });
    QTest::keyClick(values, Qt::Key_Return);
    QTest::keyClick(pick(walk, "Talla", 2), Qt::Key_Return);
    walk.follow({
        {"AssociateZorvantaProperties1", "Forward", {}, "ConfirmAssociationAddition"},
        {"ConfirmAssociationAddition1", "Accept",
         [&] {
             walk.shoot("ShowAssociationsAfterAddition");
             walk.clickLine("ShowAssociations1", "ERP-0496");
         },
         nullptr},
        {"ShowAssociations1", "Desasociar", {}, "ConfirmAssociationRemoval"},
    });
    return 0;
}
