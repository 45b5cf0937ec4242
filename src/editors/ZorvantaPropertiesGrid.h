#pragma once

#include "catalogue/ZorvantaProduct.h"
#include "editors/GridNumbers.h"

#include <QWidget>
#include <array>
#include <memory>
#include <string>
#include <vector>

class QComboBox;
class QDateTimeEdit;
class QLineEdit;
class QPushButton;
class QTableWidget;
class SellerProduct;
class ZorvantaProperty;
class ZorvantaValue;

/// Shows, and lets the seller type, the properties of a marketplace product: the grid
/// `MSFlexGrid1` with the columns "Campo" and "Valor" (and "Descuento", "Cantidad" with the
/// price block), one row per property, grouped (fixed, variant, plain) and sorted by name.
/// A cell is edited in one of the editors `Text1`, `Combo1`, `Combo2`, `DTPicker1`, laid over
/// it and checked when the edition ends. A read-only grid offers `ShowExtraInfo` on rows whose
/// value is a long text or a linked file.
///
/// Order of use: the show fields and `sellerProduct`, then setCanEdit, then
/// setZorvantaProperties, then setValues, which lays the rows out. Rows and columns are counted
/// as the grid shows them: row 0 holds the headings, column 0 the names.
class ZorvantaPropertiesGrid : public QWidget
{
    Q_OBJECT
public:
    using Properties = ZorvantaProduct::Properties;
    using Values = ZorvantaProduct::Values;

    explicit ZorvantaPropertiesGrid(QWidget *parent = nullptr);
    ~ZorvantaPropertiesGrid() override;

    /// Show the characteristic properties that are not variants, in grey.
    bool showCharacteristic = false;
    /// Show the variant properties; marked when shown beside the plain ones.
    bool showVariants = false;
    /// Show the non-characteristic properties that are not prices.
    bool showNonCharacteristic = false;
    /// Show the price block and the columns "Descuento" and "Cantidad".
    bool showPrices = false;
    /// The ERP product whose three prices feed the price editors; needed with showPrices.
    std::shared_ptr<SellerProduct> sellerProduct;

    bool canEdit() const { return m_canEdit; }
    /// False makes the grid read-only: it shows read-only properties too and never edits.
    void setCanEdit(bool canEdit) { m_canEdit = canEdit; }

    /// Every property given, keyed by id.
    std::shared_ptr<Properties> ZorvantaProperties() const { return m_allProperties; }
    /// Groups the properties and sorts each group by name; nullptr leaves every group empty.
    void setZorvantaProperties(const std::shared_ptr<Properties> &properties);

    /// The values shown and edited, keyed by property id; the grid's own collection, holding
    /// the caller's value objects and the ones the seller created. Read it after endEdition.
    std::shared_ptr<Values> values() const { return m_values; }
    /// Copies `values` into a collection of the grid's own and lays the rows out; nullptr
    /// leaves the headings and one empty row.
    void setValues(const std::shared_ptr<Values> &values);

    /// Closes an open edition as Enter would: a refused entry is told to the seller in a box,
    /// and its editor closes keeping the old value.
    void endEdition();
    /// Drops an open edition without writing anything.
    void abortEdition();

    /// The property under the current cell, or nullptr.
    std::shared_ptr<ZorvantaProperty> SelectedProperty();
    /// The property under a cell, or nullptr: a property row has it in column 1 only; a row of
    /// the price block has a property per priced column. A row past the price block raises
    /// SubscriptOutOfRange (9).
    std::shared_ptr<ZorvantaProperty> findProperty(int row, int column) const;
    /// The value of `property`, or nullptr when it has none.
    std::shared_ptr<ZorvantaValue> findValue(const ZorvantaProperty &property) const;
    /// The headings, and the columns' widths for the grid's width.
    void AddHeadings();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class Editor { Text, Pick, Typed, Date };

    // Layout.
    void fillGrid();
    void FillAttributes(Properties &collection, int &row, unsigned colour);
    void FillCustomAttributes(Properties &collection, int &row);
    void FillConversionTable();
    static void Qsort(Properties &collection);
    void applyColumnWidths();
    void DrawCellButtons();
    void ShowPopUpInfo(int row);

    // Edition.
    void startEdition();
    void openTypedCell(const ZorvantaProperty &property, const ZorvantaValue *value);
    void openPriceCell(const ZorvantaValue *value);
    void openDiscountCell(const ZorvantaProperty &property, const ZorvantaValue *value,
                          double sellerPrice);
    void endEditionErr();
    void endDiscount(const std::shared_ptr<ZorvantaProperty> &property, double listPrice);
    void endPrice(const std::shared_ptr<ZorvantaProperty> &property, double listPrice);
    void endListPrice(const std::shared_ptr<ZorvantaProperty> &property);
    /// Checks and stores what the editor of a typed cell holds; false when it was refused.
    bool endTypedCell(const std::shared_ptr<ZorvantaProperty> &property);
    /// Sets the value of `property` to `text`, creating and adding it when it has none (and
    /// clearing the mark of its cell then).
    void storeValue(const std::shared_ptr<ZorvantaProperty> &property, const std::string &text);
    /// The price combo of the current entry mode.
    QComboBox *priceCombo() const;
    void placeOver(QWidget *editor, int height);
    void hideEditors();
    void setSelectedCellMarking(bool on);
    SellerProduct &requiredSellerProduct() const;
    /// The non-empty text of the list price's value, or "" when it has none.
    std::string listPriceText() const;

    // Key filters and events.
    bool Text1_KeyPress(QChar key);
    bool Combo2_KeyPress(QChar key);
    KeyRule text1Rule(int &decimals);
    void MSFlexGrid1_KeyUp(int key, bool keypad);
    void MSFlexGrid1_EnterCell(int row, int column, int previousRow, int previousColumn);

    // Cells, addressed as the grid shows them (row 0 is the headings).
    int Row() const;
    int Col() const;
    int Rows() const;
    void setRow(int row);
    std::string textMatrix(int row, int column) const;
    void setTextMatrix(int row, int column, const std::string &text);
    void setCellBackColor(int row, int column, unsigned colour);
    void addItem(int row, const std::vector<std::string> &cells);

    QTableWidget *MSFlexGrid1;
    QLineEdit *Text1;
    QComboBox *Combo1;
    QComboBox *Combo2;
    QDateTimeEdit *DTPicker1;
    QPushButton *ShowExtraInfo;

    bool m_canEdit = false;
    bool gridReady = false;
    bool editing = false;
    /// The cell the open edition belongs to; the grid may already stand on another.
    int m_editRow = 0;
    int m_editCol = 0;
    std::shared_ptr<Properties> m_allProperties;
    std::shared_ptr<Properties> fixedProperties;
    std::shared_ptr<Properties> variantGroup;
    std::shared_ptr<Properties> plainProperties;
    std::shared_ptr<Properties> priceProperties;
    std::shared_ptr<Values> m_values;
    std::vector<std::shared_ptr<ZorvantaProperty>> rowProperties;
    std::array<std::array<std::string, 3>, 8> conversionTable;
};
