#pragma once

#include "MarketplaceProps.h"
#include "ShellTest.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "platform/core/RaisedError.h"
#include "shell/AppState.h"
#include "shell/Constants.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A property grid on screen, filled as the pages fill it: properties read by the catalogue
/// from a marketplace definition, values read from `Field` elements, the ERP product from its
/// detail reply. Rows and columns are counted as the grid shows them (row 1 is the first
/// property, column 1 the value).
class GridTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        m_separator = gDecimalSeparator;
        m_freePriceEntry = gFreePriceEntry;
        gFreePriceEntry = true;
        grid = std::make_unique<ZorvantaPropertiesGrid>();
        grid->resize(720, 560);
        grid->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(grid.get()));
    }
    void TearDown() override
    {
        grid.reset();
        gDecimalSeparator = m_separator;
        gFreePriceEntry = m_freePriceEntry;
        ShellTest::TearDown();
    }

    /// Gives the grid the properties and the values (as the wire writes them), in the pages'
    /// order, with the ERP product priced 200.00, 180.00 and 150.00.
    void fill(const std::vector<Prop> &props, const WireValues &wire, bool canEdit = true)
    {
        readDefinition(props);
        grid->sellerProduct = erpProduct("200.00", "180.00", "150.00");
        grid->setCanEdit(canEdit);
        grid->setZorvantaProperties(properties);
        grid->setValues(readValues(wire));
    }

    void readDefinition(const std::vector<Prop> &props)
    {
        definition = ::readDefinition(props);
        properties = definition->properties();
    }
    std::shared_ptr<ZorvantaPropertiesGrid::Values> readValues(const WireValues &wire)
    {
        return ::readValues(*properties, wire);
    }

    /// `text` with every "{sep}" written in the machine's decimal separator.
    static std::string local(std::string text)
    {
        for (auto at = text.find("{sep}"); at != std::string::npos; at = text.find("{sep}"))
            text.replace(at, 5, gDecimalSeparator);
        return text;
    }

    QTableWidget *table() const { return grid->findChild<QTableWidget *>("MSFlexGrid1"); }
    QLineEdit *text1() const { return grid->findChild<QLineEdit *>("Text1"); }
    QComboBox *combo1() const { return grid->findChild<QComboBox *>("Combo1"); }
    QComboBox *combo2() const { return grid->findChild<QComboBox *>("Combo2"); }
    QDateTimeEdit *picker() const { return grid->findChild<QDateTimeEdit *>("DTPicker1"); }
    QPushButton *extraInfo() const { return grid->findChild<QPushButton *>("ShowExtraInfo"); }

    int rows() const { return table()->rowCount(); }
    std::string cell(int row, int column) const
    {
        const QTableWidgetItem *item = table()->item(row - 1, column);
        return item ? item->text().toStdString() : std::string();
    }
    /// The row whose name column reads `name`; 0 when none does.
    int rowOf(const std::string &name) const
    {
        for (int row = 1; row <= rows(); ++row) {
            if (cell(row, 0) == name)
                return row;
        }
        return 0;
    }
    QColor background(int row, int column) const
    {
        return table()->item(row - 1, column)->background().color();
    }
    bool marked(int row, int column) const
    {
        return table()->item(row - 1, column)->background().style() != Qt::NoBrush;
    }
    QRect cellRect(int row, int column) const
    {
        const QRect rect = table()->visualRect(table()->model()->index(row - 1, column));
        return QRect(table()->viewport()->mapTo(grid.get(), rect.topLeft()), rect.size());
    }

    void clickCell(int row, int column)
    {
        const QRect rect = table()->visualRect(table()->model()->index(row - 1, column));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, rect.center());
    }
    /// Clicks the cell and presses Enter on the grid, as a seller opens a cell.
    void openCell(int row, int column)
    {
        clickCell(row, column);
        QTest::keyClick(table(), Qt::Key_Return);
    }
    void openCell(const std::string &name, int column = 1) { openCell(rowOf(name), column); }
    static void enter(QWidget *editor) { QTest::keyClick(editor, Qt::Key_Return); }

    /// The stored text of a property's value; "(none)" when it has no value.
    std::string stored(const std::string &id) const
    {
        const auto *value = grid->values()->find(id);
        return value ? (*value)->value() : "(none)";
    }

    std::unique_ptr<ZorvantaPropertiesGrid> grid;
    std::shared_ptr<ZorvantaProduct> definition;
    std::shared_ptr<ZorvantaProduct::Properties> properties;

private:
    std::string m_separator;
    bool m_freePriceEntry = false;
};

/// The same tests on a machine that writes 12.5 and on one that writes 12,5.
class SeparatorGridTest : public GridTest, public ::testing::WithParamInterface<const char *>
{
protected:
    void SetUp() override
    {
        GridTest::SetUp();
        gDecimalSeparator = GetParam();
    }
};
