#include "GridTest.h"
#include "editors/GridDates.h"
#include "platform/soap/MarketplaceUrl.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace {

using Texts = std::vector<std::string>;

const Prop kMarca{"Marca", "Marca", "String", "40", true, false, Prop::Fixed};

/// Empties a typed price as a seller does, one Backspace at a time.
void eraseCombo(QComboBox *combo)
{
    for (int n = combo->currentText().size(); n > 0; --n)
        QTest::keyClick(combo, Qt::Key_Backspace);
}

/// Types `keys` into `editor`; an empty text presses Backspace, clearing the selection.
void typeKeys(QWidget *editor, const std::string &keys)
{
    if (keys.empty())
        QTest::keyClick(editor, Qt::Key_Backspace);
    else
        QTest::keyClicks(editor, QString::fromStdString(keys));
}

// ---------------------------------------------------------------------------------------------
// Prices and discounts.

TEST_P(SeparatorGridTest, ADiscountTypedInDescuentoSetsThePrice)
{
    struct Row
    {
        const char *what;
        const char *keys;
        const char *typed;
        const char *price;
        const char *discountShown;
        const char *box;
    };
    const Row rows[] = {
        {"a discount of 100 on 200 gives the price 0", "100", "100", "0", "100", ""},
        {"a discount of 12.5 on 200 gives 175", "12{sep}5", "12{sep}5", "175", "12{sep}5", ""},
        {"an empty discount gives the price 0 and shows 100", "", "", "0", "100", ""},
        {"a discount of 100.0 is accepted", "100{sep}0", "100{sep}0", "0", "100{sep}0", ""},
        {"a discount of 33.333 gives a price rounded to the cent", "33{sep}333", "33{sep}333",
         "133{sep}33", "33{sep}333", ""},
        {"the fourteenth decimal of a discount cannot be typed", "1{sep}12345678901234",
         "1{sep}1234567890123", "197{sep}75", "1{sep}1234567890123", ""},
        {"a negative discount cannot be typed", "-5", "5", "190", "5", ""},
        {"a discount of 100.5 is refused", "100{sep}5", "100{sep}5", "180{sep}00", "10",
         "Ha ingresado un numero muy grande. Debe ser menor o igual a 100"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        ui->clearBoxes();
        grid->showPrices = true;
        fill(priceBlock(), {{"Cy_List_Price", "200.00"}, {"PromoPrice", "180.00"}});
        const int promo = rowOf("Precio promocional");

        openCell(promo, 2);
        ASSERT_TRUE(text1()->isVisible());
        EXPECT_EQ(text1()->text().toStdString(), "10") << "the stored price's discount";
        typeKeys(text1(), local(row.keys));
        EXPECT_EQ(text1()->text().toStdString(), local(row.typed));
        enter(text1());

        EXPECT_FALSE(text1()->isVisible());
        EXPECT_EQ(stored("PromoPrice"), local(row.price));
        EXPECT_EQ(cell(promo, 1), local(row.price));
        EXPECT_EQ(cell(promo, 2), local(row.discountShown));
        EXPECT_EQ(ui->boxTexts(), *row.box ? Texts{row.box} : Texts{});
    }
}

TEST_P(SeparatorGridTest, PriceBlockShowsPricesDiscountsAndQuantities)
{
    grid->showPrices = true;
    grid->showNonCharacteristic = true;
    std::vector<Prop> props = priceBlock();
    props.push_back({"Existencia", "Existencia", "Integer"});
    fill(props,
         {{"Cy_List_Price", "200.00"},
          {"WholeSalePrice", "150.00"},
          {"Group1Quantity", "10"},
          {"Existencia", "7"}},
         false);

    ASSERT_EQ(rows(), 9) << "one plain row and the eight rows of the block";
    const std::vector<Texts> expected{
        {"Existencia", "7", "", ""},          {"Precio de lista", "200", "", ""},
        {"Precio promocional", "0", "0", ""}, {"Precio mayorista", local("150{sep}00"), "25", "0"},
        {"Precio grupo 1", "0", "100", "10"},
    };
    for (int row = 1; row <= static_cast<int>(expected.size()); ++row) {
        const Texts shown{cell(row, 0), cell(row, 1), cell(row, 2), cell(row, 3)};
        EXPECT_EQ(shown, expected[static_cast<std::size_t>(row - 1)]) << "row " << row;
    }
    EXPECT_EQ(table()->horizontalHeaderItem(2)->text(), "Descuento");
    EXPECT_EQ(table()->horizontalHeaderItem(3)->text(), "Cantidad");
    EXPECT_EQ(grid->findProperty(2, 2), nullptr) << "the list price has no discount";
    EXPECT_EQ(grid->findProperty(3, 2)->id(), "PromoPrice");
    EXPECT_EQ(grid->findProperty(4, 3)->id(), "WholeSaleQuantity");
    EXPECT_EQ(grid->findProperty(1, 2), nullptr) << "a plain row has one editable cell";

    // Without a list price every discount is the whole price.
    grid->setValues(readValues({{"PromoPrice", "150.00"}}));
    EXPECT_EQ(cell(3, 2), "100");
    EXPECT_EQ(cell(4, 2), "100");
}

TEST_P(SeparatorGridTest, ChangingTheListPriceMovesOnlyTheDiscounts)
{
    grid->showPrices = true;
    fill(priceBlock(),
         {{"Cy_List_Price", "200.00"}, {"PromoPrice", "180.00"}, {"WholeSalePrice", "150.00"}});
    openCell("Precio de lista");
    ASSERT_TRUE(combo2()->isVisible());
    EXPECT_EQ(combo2()->currentText().toStdString(), local("200{sep}00"));
    EXPECT_EQ(combo2()->count(), 3) << "the ERP's three prices";
    eraseCombo(combo2());
    QTest::keyClicks(combo2(), "0");
    enter(combo2());

    EXPECT_EQ(stored("Cy_List_Price"), "0");
    for (const char *name :
         {"Precio promocional", "Precio mayorista", "Precio grupo 1", "Precio grupo 5"})
        EXPECT_EQ(cell(rowOf(name), 2), "100") << name;
    EXPECT_EQ(cell(rowOf("Precio promocional"), 1), local("180{sep}00"));
    EXPECT_EQ(cell(rowOf("Precio mayorista"), 1), local("150{sep}00"));

    // A price typed in its own combo: only currency keys pass.
    openCell("Precio grupo 2");
    eraseCombo(combo2());
    QTest::keyClicks(combo2(), QString::fromStdString(local("-a12{sep}345")));
    EXPECT_EQ(combo2()->currentText().toStdString(), local("12{sep}34"));
    enter(combo2());
    EXPECT_EQ(stored("Group2Price"), local("12{sep}34"));
    EXPECT_EQ(cell(rowOf("Precio grupo 2"), 2), "100") << "the list price is still 0";
}

TEST_F(GridTest, WithPricesFromTheErpListAPriceCellOpensOnPrice1)
{
    gFreePriceEntry = false;
    grid->showPrices = true;
    fill(priceBlock(), {{"Cy_List_Price", "200.00"}, {"PromoPrice", "120.00"}});
    const int promo = rowOf("Precio promocional");
    EXPECT_EQ(cell(promo, 1), "0") << "an editing grid shows no stored price";
    EXPECT_EQ(cell(promo, 2), "0");

    openCell(promo, 2);
    EXPECT_FALSE(text1()->isVisible()) << "no discount can be typed";

    openCell(promo, 1);
    ASSERT_TRUE(combo1()->isVisible());
    EXPECT_FALSE(combo2()->isVisible());
    EXPECT_EQ(combo1()->currentText(), "200.00");
    enter(combo1());
    EXPECT_EQ(stored("PromoPrice"), "200.00");
    EXPECT_EQ(cell(promo, 1), "200.00");
    EXPECT_EQ(cell(promo, 2), "0");

    openCell(promo, 1);
    QTest::keyClick(combo1(), Qt::Key_Down);
    enter(combo1());
    EXPECT_EQ(stored("PromoPrice"), "180.00") << "the seller picked the second price";
}

// ---------------------------------------------------------------------------------------------
// Typed values.

TEST_P(SeparatorGridTest, TypedNumbersAreFilteredAndChecked)
{
    struct Row
    {
        const char *what;
        const char *type;
        const char *maxValue;
        const char *keys;
        const char *typed;
        const char *box;
        const char *stored;
    };
    const std::string tooLarge = "Ha ingresado un numero muy grande. Debe ser menor o igual a ";
    const Row rows[] = {
        {"an Integer of 2147483648 is refused", "Integer", "", "2147483648", "2147483648",
         "2147483647", "(none)"},
        {"an Integer of 2147483647 is accepted", "Integer", "", "2147483647", "2147483647", "",
         "2147483647"},
        {"an Integer with maximum 50 holds two characters", "Integer", "50", "123", "12", "", "12"},
        {"an Integer of 51 over a maximum of 50 is refused", "Integer", "50", "51", "51", "50",
         "(none)"},
        {"letters and signs cannot be typed in an Integer", "Integer", "", "-4a+2", "42", "", "42"},
        {"an emptied Integer stores 0", "Integer", "", "", "", "", "0"},
        {"a Biginteger past its type's limit is refused", "Biginteger", "", "9223372036854775808",
         "9223372036854775808", "9223372036854775807", "(none)"},
        {"a Currency with maximum 100 holds six characters", "Currency", "100", "1234567", "123456",
         "100", "(none)"},
        {"a Currency keeps two decimals", "Currency", "", "99{sep}999", "99{sep}99", "",
         "99{sep}99"},
        {"the fifth Float decimal cannot be typed", "Float", "", "1{sep}23456", "1{sep}2345", "",
         "1{sep}2345"},
        {"the separator is refused as the first key", "Float", "", "{sep}5", "5", "", "5"},
        {"a Double takes no sign or exponent from the keyboard", "Double", "", "-1e5", "15", "",
         "15"},
        {"a Float of 190.1 passes a maximum of 150", "Float", "150", "190{sep}1", "190{sep}1", "",
         "190{sep}1"},
        {"a Float of 100.5 over a maximum of 100 is refused", "Float", "100", "100{sep}5",
         "100{sep}5", "100", "(none)"},
        {"a String stops at its maximum length", "String", "5", "abcdefg", "abcde", "", "abcde"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        ui->clearBoxes();
        grid->showNonCharacteristic = true;
        fill({{"Medida", "Medida", row.type, row.maxValue}}, {});

        openCell("Medida");
        ASSERT_TRUE(text1()->isVisible());
        typeKeys(text1(), local(row.keys));
        EXPECT_EQ(text1()->text().toStdString(), local(row.typed));
        enter(text1());

        EXPECT_FALSE(text1()->isVisible());
        EXPECT_EQ(ui->boxTexts(), *row.box ? Texts{tooLarge + row.box} : Texts{});
        EXPECT_EQ(stored("Medida"), local(row.stored));
        EXPECT_EQ(cell(1, 1), std::string(row.stored) == "(none)" ? "" : local(row.stored));
    }
}

TEST_F(GridTest, ChoicesOpenOnTheStoredEntry)
{
    grid->showNonCharacteristic = true;
    Prop condition{"Condicion", "Condición", "Enumeration"};
    condition.choices = {"Nuevo", "Usado", "Reacondicionado"};
    fill({{"EnvioGratis", "Envío gratis", "Boolean"}, condition},
         {{"EnvioGratis", "1"}, {"Condicion", "Usado"}});

    openCell("Envío gratis");
    ASSERT_TRUE(combo1()->isVisible());
    EXPECT_EQ(combo1()->currentText(), "1 - Verdadero");
    enter(combo1());
    EXPECT_EQ(cell(rowOf("Envío gratis"), 1), "1");
    EXPECT_EQ(stored("EnvioGratis"), "1");

    openCell("Envío gratis");
    QTest::keyClick(combo1(), Qt::Key_Up);
    enter(combo1());
    EXPECT_EQ(stored("EnvioGratis"), "0");

    openCell("Condición");
    EXPECT_EQ(combo1()->count(), 3);
    EXPECT_EQ(combo1()->currentText(), "Usado");
    QTest::keyClick(combo1(), Qt::Key_Down);
    enter(combo1());
    EXPECT_EQ(stored("Condicion"), "Reacondicionado");
}

TEST_F(GridTest, ADateShowsAsTheMachineWritesItAndIsStoredInItsWireForm)
{
    grid->showNonCharacteristic = true;
    fill({{"FechaDisponible", "Fecha disponible", "Datetime"}},
         {{"FechaDisponible", "2024/03/14T09:05:00"}});
    const QDateTime date(QDate(2024, 3, 14), QTime(9, 5));
    EXPECT_EQ(cell(1, 1), machineDateText(date));

    openCell(1, 1);
    ASSERT_TRUE(picker()->isVisible());
    EXPECT_EQ(picker()->dateTime(), date);
    picker()->setDateTime(date.addDays(1));
    enter(picker());
    EXPECT_EQ(stored("FechaDisponible"), "2024/03/15T09:05:00");
    EXPECT_EQ(cell(1, 1), machineDateText(date.addDays(1)));
}

TEST_F(GridTest, EditorsLieExactlyOverTheirCell)
{
    grid->showNonCharacteristic = true;
    fill({{"Autor", "Autor"}, {"Garantia", "Garantía", "Boolean"}, {"Fecha", "Fecha", "Datetime"}},
         {});
    struct Row
    {
        const char *name;
        QWidget *editor;
        bool ownHeight;
    };
    for (const Row &row : {Row{"Autor", text1(), false}, Row{"Garantía", combo1(), true},
                           Row{"Fecha", picker(), true}}) {
        SCOPED_TRACE(row.name);
        openCell(row.name);
        ASSERT_TRUE(row.editor->isVisible());
        const QRect cellArea = cellRect(rowOf(row.name), 1);
        const QRect editorArea = row.editor->geometry();
        EXPECT_EQ(editorArea.topLeft(), cellArea.topLeft());
        EXPECT_EQ(editorArea.width(), cellArea.width());
        if (!row.ownHeight) {
            EXPECT_EQ(editorArea.height(), cellArea.height());
        }
        grid->abortEdition();
        EXPECT_FALSE(row.editor->isVisible());
    }
    openCell("Fecha");
    EXPECT_EQ(picker()->height(), 23) << "350 twips";
}

TEST_F(GridTest, ScrollingDropsTheTypedTextAndLeavingTheCellSavesIt)
{
    grid->showNonCharacteristic = true;
    std::vector<Prop> props;
    for (int n = 10; n < 40; ++n)
        props.push_back({"Campo" + std::to_string(n), "Campo " + std::to_string(n)});
    fill(props, {});

    openCell(1, 1);
    QTest::keyClicks(text1(), "perdido");
    table()->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_FALSE(text1()->isVisible());
    EXPECT_EQ(stored("Campo10"), "(none)");
    table()->verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);

    openCell(1, 1);
    QTest::keyClicks(text1(), "guardado");
    clickCell(2, 1);
    EXPECT_FALSE(text1()->isVisible());
    EXPECT_EQ(stored("Campo10"), "guardado");
    EXPECT_EQ(cell(1, 1), "guardado");
    EXPECT_EQ(ui->boxTexts(), Texts{});
}

// ---------------------------------------------------------------------------------------------
// Layout.

TEST_F(GridTest, ARequiredPropertyIsPaleGreenUntilItHasAValue)
{
    grid->showCharacteristic = true;
    const Prop modelo{"Modelo", "Modelo", "String", "", true, false, Prop::Fixed};
    fill({kMarca, modelo}, {{"Modelo", ""}});
    const int marca = rowOf("Marca");
    EXPECT_EQ(background(marca, 1), QColor(0xD0, 0xF0, 0xD0)) << "green over the group's grey";
    EXPECT_EQ(background(rowOf("Modelo"), 1), QColor(0xE0, 0xE0, 0xE0))
        << "an empty value is still a value";

    openCell(marca, 1);
    QTest::keyClicks(text1(), "Fortex");
    enter(text1());
    EXPECT_FALSE(marked(marca, 1));
    EXPECT_EQ(stored("Marca"), "Fortex");

    grid->setCanEdit(false);
    grid->setValues(readValues({}));
    EXPECT_NE(background(marca, 1), QColor(0xD0, 0xF0, 0xD0)) << "a read-only grid asks nothing";
}

TEST_F(GridTest, AnEditingGridHidesReadOnlyProperties)
{
    grid->showCharacteristic = true;
    const Prop nombre{"Name", "Nombre", "String", "80", true, true, Prop::Fixed};
    fill({nombre, kMarca}, {});
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(cell(1, 0), "Marca");

    fill({nombre, kMarca}, {}, false);
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(cell(1, 0), "Marca");
    EXPECT_EQ(cell(2, 0), "Nombre");
}

TEST_F(GridTest, GroupsComeInOrderEachSortedByNameAndMarked)
{
    grid->showCharacteristic = true;
    grid->showVariants = true;
    grid->showNonCharacteristic = true;
    fill({{"Talla", "Talla", "String", "", false, false, Prop::Variant},
          {"Peso", "Peso", "Float"},
          kMarca,
          {"Color", "Color", "String", "", false, false, Prop::Variant},
          {"Anio", "Año", "Integer", "", false, false, Prop::Fixed},
          {"Dias", "Días de entrega", "Integer"}},
         {}, false);
    const Texts names{cell(1, 0), cell(2, 0), cell(3, 0), cell(4, 0), cell(5, 0), cell(6, 0)};
    EXPECT_EQ(names, (Texts{"Año", "Marca", "Color", "Talla", "Días de entrega", "Peso"}));
    EXPECT_EQ(background(1, 1), QColor(0xE0, 0xE0, 0xE0));
    EXPECT_EQ(background(3, 1), QColor(0x00, 0xFF, 0xFF)) << "variants beside plain rows";
    EXPECT_FALSE(marked(5, 1));

    grid->showCharacteristic = false;
    grid->showNonCharacteristic = false;
    grid->setValues(readValues({}));
    EXPECT_EQ(rows(), 2);
    EXPECT_FALSE(marked(1, 1)) << "variants alone are plain";
}

TEST_F(GridTest, NamesAreSortedHoweverTheyArrive)
{
    grid->showNonCharacteristic = true;
    Texts names;
    for (int n = 0; n < 120; ++n)
        names.push_back("Campo " + std::to_string(n % 45));
    std::shuffle(names.begin(), names.end(), std::mt19937(7));
    std::vector<Prop> props;
    for (std::size_t n = 0; n < names.size(); ++n)
        props.push_back({"P" + std::to_string(n), names[n]});
    fill(props, {}, false);

    Texts shown;
    for (int row = 1; row <= rows(); ++row)
        shown.push_back(cell(row, 0));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(shown, names);
    EXPECT_EQ(grid->ZorvantaProperties()->count(), 120);
}

TEST_F(GridTest, AGridWithoutValuesShowsTheHeadingsAndOneEmptyRow)
{
    grid->showNonCharacteristic = true;
    fill({kMarca}, {});
    grid->setValues(nullptr);
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(cell(1, 0), "");
    EXPECT_EQ(table()->horizontalHeaderItem(0)->text(), "Campo");
    EXPECT_EQ(table()->horizontalHeaderItem(1)->text(), "Valor");
    QTest::keyClick(table(), Qt::Key_Return);
    EXPECT_FALSE(text1()->isVisible()) << "nothing to edit";
}

// ---------------------------------------------------------------------------------------------
// Read-only grids.

TEST_F(GridTest, AReadOnlyGridOpensLongTextsAndFilesInTheBrowser)
{
    grid->showNonCharacteristic = true;
    fill({{"DescriptionHTML", "Descripción detallada", "String", "4000"},
          {"Imagen", "Imagen", "FilePath"},
          {"Marca", "Marca"}},
         {{"DescriptionHTML", "<![CDATA[<b>Potente</b>]]>"},
          {"Imagen", "/img/taladro.jpg"},
          {"Marca", "Fortex"}},
         false);

    clickCell(rowOf("Marca"), 1);
    EXPECT_FALSE(extraInfo()->isVisible());

    const int description = rowOf("Descripción detallada");
    clickCell(description, 1);
    ASSERT_TRUE(extraInfo()->isVisible());
    const QRect cellArea = cellRect(description, 1);
    EXPECT_EQ(extraInfo()->geometry().top(), cellArea.top());
    EXPECT_EQ(extraInfo()->geometry().right(), cellArea.right());
    QTest::mouseClick(extraInfo(), Qt::LeftButton);
    std::ifstream file(workDir / "desc.html");
    std::stringstream written;
    written << file.rdbuf();
    EXPECT_EQ(written.str(), "<HTML><b>Potente</b></HTML>");

    clickCell(rowOf("Imagen"), 1);
    EXPECT_TRUE(extraInfo()->isVisible());
    QTest::keyClick(table(), Qt::Key_Return);
    EXPECT_EQ(ui->openedUrls(),
              (Texts{"file://" + std::filesystem::current_path().string() + "/desc.html",
                     marketplaceUrl() + "/img/taladro.jpg"}));
}

// ---------------------------------------------------------------------------------------------
// Bad marketplace data.

TEST_F(GridTest, APriceBlockMissingAPropertyIsReportedAndTheRestStays)
{
    grid->showPrices = true;
    std::vector<Prop> props = priceBlock();
    props.erase(std::find_if(props.begin(), props.end(),
                             [](const Prop &p) { return p.id == "Group3Price"; }));
    fill(props, {{"Cy_List_Price", "200.00"}}, false);

    EXPECT_EQ(rows(), 5) << "the rows up to the second group";
    EXPECT_EQ(cell(5, 0), "Precio grupo 2");
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("Error: -10503 (ZorvantaPropertiesGrid:FillCustomAttributes): "
                                 "No se encontró la propiedad Group3Price"),
              std::string::npos)
        << logLines()[0];
    EXPECT_TRUE(gAppRunning) << "the wizard goes on";
}

TEST_F(GridTest, APropertyOfAnUnknownTypeOpensNoEditorAndIsReported)
{
    grid->showNonCharacteristic = true;
    fill({{"Tono", "Tono", "ColorRGB"}, {"Marca", "Marca"}}, {{"Tono", "#FF0000"}});
    EXPECT_EQ(cell(rowOf("Tono"), 1), "#FF0000");

    openCell("Tono");
    for (QWidget *editor : std::initializer_list<QWidget *>{text1(), combo1(), combo2(), picker()})
        EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(
        ui->boxTexts(),
        Texts{"Error: -10503: Error de la aplicación. Contacte al administrador del sistema"});
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("tipo de dato desconocido: ColorRGB"), std::string::npos);
    EXPECT_TRUE(gAppRunning);

    openCell("Marca");
    EXPECT_TRUE(text1()->isVisible()) << "leaving the cell ended the edition";
    EXPECT_EQ(stored("Tono"), "#FF0000");
}

INSTANTIATE_TEST_SUITE_P(Machines, SeparatorGridTest, ::testing::Values(".", ","),
                         [](const auto &info) {
                             return std::string(info.param) == "." ? "point" : "comma";
                         });

} // namespace
