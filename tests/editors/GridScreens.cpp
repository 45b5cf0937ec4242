// Shows the property grid alone on the real window system and photographs the screen with the
// price block and each editor open in turn, for a person to look at:
//   xvfb-run -s "-screen 0 1024x768x24" env QT_QPA_PLATFORM=xcb grid_screens /work/shots
// writes grid-<step>.png into the folder given.
#include "MarketplaceProps.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "shell/AppState.h"

#include <QApplication>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <iostream>

namespace {

void photograph(const QString &folder, const QString &step)
{
    QTest::qWait(300);
    const QString path = folder + "/grid-" + step + ".png";
    QGuiApplication::primaryScreen()->grabWindow(0).save(path);
    std::cout << path.toStdString() << '\n';
}

void openCell(ZorvantaPropertiesGrid &grid, int row, int column)
{
    auto *table = grid.findChild<QTableWidget *>("MSFlexGrid1");
    table->setCurrentCell(row - 1, column);
    QTest::keyClick(table, Qt::Key_Return);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString folder = argc > 1 ? argv[1] : ".";
    gFreePriceEntry = true;

    Prop condition{"Condicion", "Condición", "Enumeration"};
    condition.choices = {"Nuevo", "Usado"};
    std::vector<Prop> props{{"Marca", "Marca", "String", "40", true, false, Prop::Fixed},
                            {"Talla", "Talla", "String", "", false, false, Prop::Variant},
                            {"Existencia", "Existencia", "Integer", "99999", true},
                            {"EnvioGratis", "Envío gratis", "Boolean"},
                            {"FechaDisponible", "Fecha disponible", "Datetime"},
                            {"DescriptionHTML", "Descripción detallada", "String", "4000"},
                            condition};
    for (const Prop &price : priceBlock())
        props.push_back(price);
    const auto definition = readDefinition(props);
    const auto properties = definition->properties();
    const auto values = readValues(*properties, {{"Talla", "M"},
                                                 {"EnvioGratis", "1"},
                                                 {"FechaDisponible", "2024/03/14T09:05:00"},
                                                 {"DescriptionHTML", "<![CDATA[<b>Potente</b>]]>"},
                                                 {"Cy_List_Price", "200.00"},
                                                 {"PromoPrice", "180.00"},
                                                 {"WholeSalePrice", "150.50"},
                                                 {"WholeSaleQuantity", "12"}});

    ZorvantaPropertiesGrid grid;
    grid.setWindowTitle("ZorvantaPropertiesGrid");
    grid.resize(760, 520);
    grid.move(20, 20);
    grid.showCharacteristic = true;
    grid.showVariants = true;
    grid.showNonCharacteristic = true;
    grid.showPrices = true;
    grid.sellerProduct = erpProduct("200.00", "190.00", "150.00");
    grid.setCanEdit(true);
    grid.setZorvantaProperties(properties);
    grid.setValues(values);
    grid.show();
    grid.activateWindow();
    photograph(folder, "prices");

    // Rows: 1 Marca, 2 Talla, 3 Condición, 4 Descripción, 5 Envío, 6 Existencia, 7 Fecha,
    // then the price block from row 8.
    const struct
    {
        const char *step;
        int row;
        int column;
    } steps[] = {{"text1", 1, 1},  {"combo1", 5, 1},    {"dtpicker1", 7, 1},
                 {"combo2", 9, 1}, {"discount", 10, 2}, {"quantity", 10, 3}};
    for (const auto &step : steps) {
        openCell(grid, step.row, step.column);
        photograph(folder, step.step);
        grid.abortEdition();
    }

    grid.setCanEdit(false);
    grid.setValues(values);
    grid.findChild<QTableWidget *>("MSFlexGrid1")->setCurrentCell(3, 1);
    photograph(folder, "readonly");
    return 0;
}
