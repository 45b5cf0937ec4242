#include "editors/ZorvantaPropertiesGrid.h"

#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "editors/GridDates.h"
#include "platform/soap/MarketplaceUrl.h"
#include "platform/ui/Ui.h"
#include "shell/AppState.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/EventProcedure.h"
#include "shell/frame/Twips.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

namespace {

// Colours as the grid's cells take them: blue in the high byte, red in the low one.
constexpr unsigned kNoMark = 0;
constexpr unsigned kFixedGrey = 0xE0E0E0;
constexpr unsigned kVariantMark = 0xFFFF00;
constexpr unsigned kRequiredGreen = 0xD0F0D0;

constexpr const char *kListPrice = "Cy_List_Price";
constexpr const char *kPriceIds[] = {"PromoPrice",  "WholeSalePrice", "Group1Price", "Group2Price",
                                     "Group3Price", "Group4Price",    "Group5Price"};
constexpr const char *kQuantityIds[] = {"WholeSaleQuantity", "Group1Quantity", "Group2Quantity",
                                        "Group3Quantity",    "Group4Quantity", "Group5Quantity"};

std::string label(const char *routine)
{
    return std::string("ZorvantaPropertiesGrid:") + routine;
}

template <std::size_t N> bool isOneOf(const std::string &id, const char *const (&ids)[N])
{
    return std::any_of(std::begin(ids), std::end(ids),
                       [&](const char *each) { return id == each; });
}

bool isPricedId(const std::string &id)
{
    return isOneOf(id, kPriceIds);
}

bool isQuantityId(const std::string &id)
{
    return isOneOf(id, kQuantityIds);
}

bool isPriceBlockId(const std::string &id)
{
    return id == kListPrice || isPricedId(id) || isQuantityId(id);
}

QColor colourOf(unsigned colour)
{
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

QString qs(const std::string &text)
{
    return QString::fromStdString(text);
}

/// 100 less the share of `price` in `listPrice`, as the block shows a discount.
std::string discountText(const std::string &price, double listPrice)
{
    if (listPrice == 0)
        return "100";
    return doubleText(100 - (decimalValue(price) / listPrice) * 100);
}

/// The same discount worked out in the order the price editors use, which may differ from
/// discountText in the last digits.
std::string discountAfterPrice(const std::string &price, double listPrice)
{
    if (listPrice == 0)
        return "100";
    return doubleText(100 - (decimalValue(price) * 100) / listPrice);
}

struct TypeLimit
{
    const char *type;
    const char *limit;
    const char *message;
};

constexpr const char *kTooLarge = "Ha ingresado un numero muy grande. Debe ser menor o igual a ";

// The largest value of each numeric type, when the property sets none, and how it is told.
constexpr TypeLimit kTypeLimits[] = {
    {"Integer", "2147483647", "2147483647"},
    {"Biginteger", "9223372036854775807", "9223372036854775807"},
    {"Double", "1.79E308", "1.79 x 10^308"},
    {"Float", "3.40E38", "3.40 x 10^38"},
    {"Currency", "922337203685477.5807", "922337203685477.5807"},
};

const TypeLimit *typeLimit(const std::string &dataType)
{
    for (const TypeLimit &each : kTypeLimits) {
        if (dataType == each.type)
            return &each;
    }
    return nullptr;
}

/// The limits above are written with a point; the grid compares in its own separator.
std::string inGridForm(std::string number)
{
    if (const auto point = number.find('.'); point != std::string::npos)
        number.replace(point, 1, gDecimalSeparator);
    return number;
}

/// A typed character, when the event carries one; control characters (Enter, Backspace,
/// shortcuts) are never filtered.
std::optional<QChar> typedCharacter(const QEvent *event)
{
    const auto *key = static_cast<const QKeyEvent *>(event);
    if (key->text().size() != 1 || !key->text().front().isPrint())
        return std::nullopt;
    return key->text().front();
}

bool isEnterRelease(const QEvent *event)
{
    if (event->type() != QEvent::KeyRelease)
        return false;
    const auto *key = static_cast<const QKeyEvent *>(event);
    return !key->isAutoRepeat() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
}

} // namespace

ZorvantaPropertiesGrid::ZorvantaPropertiesGrid(QWidget *parent)
    : QWidget(parent), MSFlexGrid1(new QTableWidget(1, 2, this)), Text1(new QLineEdit(this)),
      Combo1(new QComboBox(this)), Combo2(new QComboBox(this)), DTPicker1(new QDateTimeEdit(this)),
      ShowExtraInfo(new QPushButton("...", this))
{
    MSFlexGrid1->setObjectName("MSFlexGrid1");
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectItems);
    MSFlexGrid1->verticalHeader()->hide();
    MSFlexGrid1->setWordWrap(false);
    MSFlexGrid1->installEventFilter(this);

    Text1->setObjectName("Text1");
    Combo1->setObjectName("Combo1");
    Combo2->setObjectName("Combo2");
    Combo2->setEditable(true);
    DTPicker1->setObjectName("DTPicker1");
    DTPicker1->setCalendarPopup(true);
    ShowExtraInfo->setObjectName("ShowExtraInfo");
    for (QWidget *editor : std::initializer_list<QWidget *>{Text1, Combo1, Combo2, DTPicker1}) {
        editor->hide();
        editor->installEventFilter(this);
    }
    ShowExtraInfo->hide();

    connect(MSFlexGrid1, &QTableWidget::cellDoubleClicked, this,
            eventProcedure(label("MSFlexGrid1_DblClick"), [this] {
                if (m_canEdit)
                    startEdition();
            }));
    connect(MSFlexGrid1, &QTableWidget::currentCellChanged, this,
            [this](int row, int column, int previousRow, int previousColumn) {
                guardEvent(
                    [&] { MSFlexGrid1_EnterCell(row, column, previousRow, previousColumn); });
            });
    for (QScrollBar *bar : {MSFlexGrid1->verticalScrollBar(), MSFlexGrid1->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this,
                eventProcedure(label("MSFlexGrid1_Scroll"), [this] {
                    if (m_canEdit)
                        abortEdition();
                    else if (gridReady)
                        DrawCellButtons();
                }));
    connect(ShowExtraInfo, &QPushButton::clicked, this,
            eventProcedure(label("ShowExtraInfo_Click"),
                           [this] { ShowPopUpInfo(ShowExtraInfo->property("tag").toInt()); }));
    AddHeadings();
}

ZorvantaPropertiesGrid::~ZorvantaPropertiesGrid() = default;

// ---------------------------------------------------------------------------------------------
// Cells as the grid shows them: row 0 is the table's header, so data row r is table row r - 1.

int ZorvantaPropertiesGrid::Row() const
{
    return MSFlexGrid1->currentRow() + 1;
}

int ZorvantaPropertiesGrid::Col() const
{
    return MSFlexGrid1->currentColumn();
}

int ZorvantaPropertiesGrid::Rows() const
{
    return MSFlexGrid1->rowCount() + 1;
}

void ZorvantaPropertiesGrid::setRow(int row)
{
    MSFlexGrid1->setCurrentCell(row - 1, std::max(Col(), 1));
}

std::string ZorvantaPropertiesGrid::textMatrix(int row, int column) const
{
    const QTableWidgetItem *item = MSFlexGrid1->item(row - 1, column);
    return item ? item->text().toStdString() : std::string();
}

void ZorvantaPropertiesGrid::setTextMatrix(int row, int column, const std::string &text)
{
    QTableWidgetItem *item = MSFlexGrid1->item(row - 1, column);
    if (!item) {
        item = new QTableWidgetItem;
        MSFlexGrid1->setItem(row - 1, column, item);
    }
    item->setText(qs(text));
}

void ZorvantaPropertiesGrid::setCellBackColor(int row, int column, unsigned colour)
{
    if (QTableWidgetItem *item = MSFlexGrid1->item(row - 1, column))
        item->setBackground(colour == kNoMark ? QBrush() : QBrush(colourOf(colour)));
}

void ZorvantaPropertiesGrid::addItem(int row, const std::vector<std::string> &cells)
{
    MSFlexGrid1->insertRow(row - 1);
    for (int column = 0; column < MSFlexGrid1->columnCount(); ++column) {
        auto *item = new QTableWidgetItem(
            column < static_cast<int>(cells.size()) ? qs(cells[column]) : QString());
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        // The names' column is fixed, as a heading: it never holds the current cell.
        item->setFlags(column == 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (column == 0)
            item->setBackground(palette().window());
        MSFlexGrid1->setItem(row - 1, column, item);
    }
}

// ---------------------------------------------------------------------------------------------
// Model and layout.

void ZorvantaPropertiesGrid::setZorvantaProperties(const std::shared_ptr<Properties> &properties)
{
    withHandler(label("Let ZorvantaProperties"), [&] {
        m_allProperties = std::make_shared<Properties>();
        fixedProperties = std::make_shared<Properties>();
        variantGroup = std::make_shared<Properties>();
        plainProperties = std::make_shared<Properties>();
        priceProperties = std::make_shared<Properties>();
        if (!properties)
            return;
        for (const auto &property : *properties) {
            const std::string &id = property->id();
            m_allProperties->add(property, id);
            if (property->characteristic() && !property->isVariant())
                fixedProperties->add(property, id);
            else if (property->characteristic())
                variantGroup->add(property, id);
            else if (!isPriceBlockId(id))
                plainProperties->add(property, id);
            else
                priceProperties->add(property, id);
        }
        Qsort(*fixedProperties);
        Qsort(*variantGroup);
        Qsort(*plainProperties);
    });
}

void ZorvantaPropertiesGrid::Qsort(Properties &collection)
{
    if (collection.count() == 0)
        return;
    // Bounds still to sort, as two stacks: no recursion however the names fall.
    constexpr int kStackSize = 81;
    std::array<int, kStackSize> lower{};
    std::array<int, kStackSize> upper{};
    int top = 0;
    lower[0] = 1;
    upper[0] = collection.count();
    const auto name = [&](int at) -> const std::string & { return collection.item(at)->name(); };
    while (top >= 0) {
        const int lb = lower[static_cast<std::size_t>(top)];
        const int ub = upper[static_cast<std::size_t>(top)];
        if (lb >= ub) {
            --top;
            continue;
        }
        int i = lb;
        int j = ub;
        const std::string pivot = name((i + j) / 2);
        while (i <= j) {
            while (name(i) < pivot && i < ub)
                ++i;
            while (name(j) > pivot && j > lb)
                --j;
            if (i > j)
                break;
            if (i < j) {
                // The collection cannot swap: each item leaves and comes back under its key.
                const auto atI = collection.item(i);
                const auto atJ = collection.item(j);
                collection.remove(j);
                collection.addBefore(atJ, atJ->id(), i);
                collection.remove(i + 1);
                collection.addAfter(atI, atI->id(), j - 1);
            }
            if (i < ub)
                ++i;
            if (j > lb)
                --j;
        }
        // The right part goes on the stack; this entry shrinks to the left part.
        upper[static_cast<std::size_t>(top)] = j;
        if (++top >= kStackSize)
            raiseRuntimeError(RuntimeErrorNumber::SubscriptOutOfRange);
        lower[static_cast<std::size_t>(top)] = i;
        upper[static_cast<std::size_t>(top)] = ub;
    }
}

void ZorvantaPropertiesGrid::setValues(const std::shared_ptr<Values> &values)
{
    withHandler(label("Let values"), [&] {
        if (!values) {
            m_values = nullptr;
            // An empty grid must not let the rows of its last filling be edited.
            gridReady = false;
            editing = false;
            hideEditors();
            rowProperties.clear();
            MSFlexGrid1->clearContents();
            MSFlexGrid1->setRowCount(1);
            ShowExtraInfo->hide();
            AddHeadings();
            return;
        }
        m_values = std::make_shared<Values>();
        for (const auto &entry : *values)
            m_values->add(entry, entry->definition()->id());
        fillGrid();
        if (m_canEdit && Rows() >= 2)
            setRow(1);
    });
}

void ZorvantaPropertiesGrid::fillGrid()
{
    withHandler(label("fillGrid"), [&] {
        gridReady = false;
        // The rows change under any open edition: it is dropped, never written elsewhere.
        editing = false;
        hideEditors();
        MSFlexGrid1->clearContents();
        MSFlexGrid1->setRowCount(1);
        ShowExtraInfo->hide();
        AddHeadings();
        rowProperties.clear();
        int row = 1;
        if (showCharacteristic && fixedProperties)
            FillAttributes(*fixedProperties, row, kFixedGrey);
        if (showVariants && variantGroup)
            FillAttributes(*variantGroup, row, showNonCharacteristic ? kVariantMark : kNoMark);
        if (showNonCharacteristic && plainProperties)
            FillAttributes(*plainProperties, row, kNoMark);
        if (showPrices && priceProperties) {
            FillConversionTable();
            FillCustomAttributes(*priceProperties, row);
        }
        MSFlexGrid1->setRowCount(row - 1);
        if (Rows() >= 2)
            setRow(1);
        if (!m_canEdit)
            DrawCellButtons();
        gridReady = true;
    });
}

void ZorvantaPropertiesGrid::AddHeadings()
{
    withHandler(label("AddHeadings"), [&] {
        if (showPrices)
            MSFlexGrid1->setColumnCount(4);
        QStringList headings{"Campo", "Valor"};
        if (showPrices)
            headings << "Descuento"
                     << "Cantidad";
        MSFlexGrid1->setHorizontalHeaderLabels(headings);
        MSFlexGrid1->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        applyColumnWidths();
    });
}

void ZorvantaPropertiesGrid::applyColumnWidths()
{
    // Room is left for the vertical scroll bar.
    const double usable = pixelsToTwips(MSFlexGrid1->width()) - 250;
    if (showPrices) {
        for (int column = 0; column < 4; ++column)
            MSFlexGrid1->setColumnWidth(column, twipsToPixels(usable / 4));
    } else {
        MSFlexGrid1->setColumnWidth(0, twipsToPixels(usable / 3));
        MSFlexGrid1->setColumnWidth(1, twipsToPixels(usable * 2 / 3));
    }
}

void ZorvantaPropertiesGrid::FillAttributes(Properties &collection, int &row, unsigned colour)
{
    withHandler(label("FillAttributes"), [&] {
        for (const auto &property : collection) {
            const auto value = m_values ? findValue(*property) : nullptr;
            // An editing grid hides what the seller may not change; a read-only one shows all.
            if (property->readOnly() && m_canEdit)
                continue;
            std::vector<std::string> cells{property->name()};
            if (value && value->value().empty())
                cells.emplace_back();
            else if (value && property->dataType() == "Datetime")
                cells.push_back(machineDateText(ISO8601ToDate(value->value())));
            else if (value)
                cells.push_back(value->value());
            addItem(row, cells);
            if (colour != kNoMark)
                setCellBackColor(row, 1, colour);
            if (m_canEdit && property->required() && !value)
                setCellBackColor(row, 1, kRequiredGreen);
            rowProperties.push_back(property);
            ++row;
        }
    });
}

void ZorvantaPropertiesGrid::FillConversionTable()
{
    conversionTable[0] = {kListPrice, "", ""};
    conversionTable[1] = {"PromoPrice", "PromoPrice", ""};
    conversionTable[2] = {"WholeSalePrice", "WholeSalePrice", "WholeSaleQuantity"};
    for (int group = 1; group <= 5; ++group) {
        const std::string number = std::to_string(group);
        const std::string price = "Group" + number + "Price";
        conversionTable[static_cast<std::size_t>(group + 2)] = {price, price,
                                                                "Group" + number + "Quantity"};
    }
}

void ZorvantaPropertiesGrid::FillCustomAttributes(Properties &collection, int &row)
{
    withHandler(label("FillCustomAttributes"), [&] {
        const auto member = [&](const std::string &id) {
            std::shared_ptr<ZorvantaProperty> *found = collection.find(id);
            if (!found)
                raiseError(-10503, "No se encontró la propiedad " + id +
                                       " en la lista de PropertiesDefinition");
            return *found;
        };
        const auto valueOf = [&](const std::string &id) {
            std::shared_ptr<ZorvantaValue> *found = m_values ? m_values->find(id) : nullptr;
            return found ? *found : nullptr;
        };
        const auto mark = [&](int column, const ZorvantaProperty &property, bool hasValue) {
            if (m_canEdit && property.required() && !hasValue)
                setCellBackColor(row, column, kRequiredGreen);
        };
        const std::string listPriceValue = listPriceText();
        const double listPrice = listPriceValue.empty() ? 0 : currencyValue(listPriceValue);

        for (const auto &ids : conversionTable) {
            const auto property = member(ids[0]);
            const auto value = valueOf(ids[0]);
            std::vector<std::string> cells{property->name()};
            std::shared_ptr<ZorvantaProperty> quantityProperty;
            std::shared_ptr<ZorvantaValue> quantity;
            if (ids[0] == kListPrice) {
                cells.push_back(doubleText(listPrice));
            } else {
                std::string price = "0";
                std::string discount = "0";
                if (m_canEdit && !gFreePriceEntry) {
                    // The pick-list opens on the ERP's price whatever is stored.
                } else if (!value) {
                    // A missing promotion shows no discount; a missing wholesale or group
                    // price shows the whole price off.
                    discount = ids[0] == "PromoPrice" ? (listPrice != 0 ? "0" : "100")
                                                      : discountText("0", listPrice);
                } else {
                    price = value->value().empty() ? "0" : value->value();
                    discount = discountText(price, listPrice);
                }
                cells.push_back(price);
                cells.push_back(discount);
                if (!ids[2].empty()) {
                    quantityProperty = member(ids[2]);
                    quantity = valueOf(ids[2]);
                    cells.push_back(quantity ? quantity->value() : "0");
                }
            }
            addItem(row, cells);
            mark(1, *property, value != nullptr);
            if (ids[0] != kListPrice)
                mark(2, *property, value != nullptr);
            if (quantityProperty)
                mark(3, *quantityProperty, quantity != nullptr);
            ++row;
        }
    });
}

std::shared_ptr<ZorvantaProperty> ZorvantaPropertiesGrid::findProperty(int row, int column) const
{
    // The headings' row has no property.
    if (row < 1)
        return nullptr;
    const int plainRows = static_cast<int>(rowProperties.size());
    if (row <= plainRows)
        return column == 1 ? rowProperties[static_cast<std::size_t>(row - 1)] : nullptr;
    const int blockRow = row - plainRows - 1;
    if (blockRow >= static_cast<int>(conversionTable.size()) || column < 1 || column > 3)
        raiseRuntimeError(RuntimeErrorNumber::SubscriptOutOfRange);
    const std::string &id =
        conversionTable[static_cast<std::size_t>(blockRow)][static_cast<std::size_t>(column - 1)];
    if (id.empty() || !m_allProperties)
        return nullptr;
    const auto *found = m_allProperties->find(id);
    return found ? *found : nullptr;
}

std::shared_ptr<ZorvantaValue>
ZorvantaPropertiesGrid::findValue(const ZorvantaProperty &property) const
{
    if (!m_values)
        return nullptr;
    const auto *found = m_values->find(property.id());
    return found ? *found : nullptr;
}

std::shared_ptr<ZorvantaProperty> ZorvantaPropertiesGrid::SelectedProperty()
{
    return withHandler(label("SelectedProperty"), [&] { return findProperty(Row(), Col()); });
}

std::string ZorvantaPropertiesGrid::listPriceText() const
{
    const auto *found = m_values ? m_values->find(kListPrice) : nullptr;
    return found ? (*found)->value() : std::string();
}

void ZorvantaPropertiesGrid::DrawCellButtons()
{
    withHandler(label("DrawCellButtons"), [&] {
        const int tableRow = Row() - 1;
        const QRect cell =
            MSFlexGrid1->visualRect(MSFlexGrid1->model()->index(std::max(tableRow, 0), 1));
        const bool visible =
            tableRow >= 0 && cell.bottom() >= 0 && cell.top() < MSFlexGrid1->viewport()->height();
        const auto property = visible ? findProperty(Row(), 1) : nullptr;
        const bool offered =
            property && findValue(*property) &&
            (property->dataType() == "FilePath" || property->id() == "DescriptionHTML");
        if (!offered) {
            ShowExtraInfo->hide();
            return;
        }
        const QPoint topLeft = MSFlexGrid1->viewport()->mapTo(this, cell.topLeft());
        const int width = std::min(cell.width(), twipsToPixels(300));
        ShowExtraInfo->setGeometry(std::max(topLeft.x() + cell.width() - width, 0), topLeft.y(),
                                   width, cell.height());
        ShowExtraInfo->setProperty("tag", Row());
        ShowExtraInfo->show();
        ShowExtraInfo->raise();
    });
}

void ZorvantaPropertiesGrid::ShowPopUpInfo(int row)
{
    withHandler(label("ShowPopUpInfo"), [&] {
        const auto property = findProperty(row, 1);
        const auto value = property ? findValue(*property) : nullptr;
        // A row with nothing to show opens nothing.
        if (!value)
            return;
        const std::string current = std::filesystem::current_path().string();
        if (property->dataType() == "String") {
            std::ofstream file(std::filesystem::current_path() / "desc.html",
                               std::ios::binary | std::ios::trunc);
            file << "<HTML>" << value->value() << "</HTML>";
            file.close();
            if (!file)
                raiseRuntimeError(RuntimeErrorNumber::PathFileAccess);
            ui().openUrl("file://" + current + "/desc.html");
        } else if (property->dataType() == "FilePath") {
            ui().openUrl(marketplaceUrl() + value->value());
        }
    });
}

void ZorvantaPropertiesGrid::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    guardEvent([this] {
        withHandler(label("UserControl_Resize"), [this] {
            MSFlexGrid1->setGeometry(rect());
            applyColumnWidths();
        });
    });
}

// ---------------------------------------------------------------------------------------------
// Edition.

SellerProduct &ZorvantaPropertiesGrid::requiredSellerProduct() const
{
    if (!sellerProduct)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return *sellerProduct;
}

QComboBox *ZorvantaPropertiesGrid::priceCombo() const
{
    return gFreePriceEntry ? Combo2 : Combo1;
}

void ZorvantaPropertiesGrid::setSelectedCellMarking(bool on)
{
    if (on) {
        MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
        if (MSFlexGrid1->currentIndex().isValid())
            MSFlexGrid1->selectionModel()->select(MSFlexGrid1->currentIndex(),
                                                  QItemSelectionModel::ClearAndSelect);
    } else {
        MSFlexGrid1->clearSelection();
        MSFlexGrid1->setSelectionMode(QAbstractItemView::NoSelection);
    }
}

void ZorvantaPropertiesGrid::placeOver(QWidget *editor, int height)
{
    const QRect cell =
        MSFlexGrid1->visualRect(MSFlexGrid1->model()->index(m_editRow - 1, m_editCol));
    const QPoint topLeft = MSFlexGrid1->viewport()->mapTo(this, cell.topLeft());
    editor->setGeometry(topLeft.x(), topLeft.y(), cell.width(),
                        height > 0 ? height : cell.height());
}

void ZorvantaPropertiesGrid::hideEditors()
{
    const std::array<QWidget *, 4> editors{Text1, Combo1, Combo2, DTPicker1};
    const bool hadFocus = std::any_of(editors.begin(), editors.end(),
                                      [](QWidget *editor) { return editor->hasFocus(); });
    for (QWidget *editor : editors)
        editor->hide();
    // The keyboard goes back to the grid, so that the seller can move on at once.
    if (hadFocus)
        MSFlexGrid1->setFocus();
}

void ZorvantaPropertiesGrid::startEdition()
{
    withHandler(label("startEdition"), [&] {
        if (Rows() == 1 || !gridReady || editing)
            return;
        editing = true;
        setSelectedCellMarking(false);
        m_editRow = Row();
        m_editCol = Col();
        const auto property = findProperty(m_editRow, m_editCol);
        if (!property) {
            editing = false;
            return;
        }
        const auto value = findValue(*property);
        double sellerPrice = 0;
        if (showPrices)
            sellerPrice = currencyValue(requiredSellerProduct().price1());
        // Cells that open no editor keep `editing` up until the next cell change clears it.
        if (m_editCol == 3 && !isQuantityId(property->id()))
            return;
        if (m_editCol == 2) {
            openDiscountCell(*property, value.get(), sellerPrice);
            return;
        }
        if (m_editCol == 1 && (property->id() == kListPrice || isPricedId(property->id()))) {
            openPriceCell(value.get());
            return;
        }
        openTypedCell(*property, value.get());
    });
}

void ZorvantaPropertiesGrid::openTypedCell(const ZorvantaProperty &property,
                                           const ZorvantaValue *value)
{
    const std::string &type = property.dataType();
    const std::string &maxValue = property.maxValue();
    int maxLength = -1;
    if (type == "String")
        maxLength = maxValue.empty() ? 0 : leadingNumber(maxValue);
    else if (type == "FilePath")
        maxLength = 256;
    else if (type == "Integer")
        maxLength = maxValue.empty() ? 10 : static_cast<int>(maxValue.size());
    else if (type == "Biginteger")
        maxLength = maxValue.empty() ? 19 : static_cast<int>(maxValue.size());
    else if (type == "Float" || type == "Double")
        maxLength = 0;
    else if (type == "Currency")
        maxLength = maxValue.empty() ? 20 : static_cast<int>(maxValue.size()) + 3;

    if (maxLength >= 0) {
        placeOver(Text1, 0);
        Text1->setMaxLength(maxLength > 0 ? maxLength : 32767);
        const bool numeric = type != "String" && type != "FilePath";
        Text1->setText(value ? qs(value->value()) : numeric ? "0" : "");
        Text1->setSelection(0, static_cast<int>(Text1->text().size()));
        Text1->show();
        Text1->raise();
        Text1->setFocus();
        return;
    }
    if (type == "Boolean" || type == "Enumeration") {
        placeOver(Combo1, Combo1->sizeHint().height());
        Combo1->clear();
        if (type == "Boolean") {
            Combo1->addItems({"0 - Falso", "1 - Verdadero"});
            // A stored value that is neither 0 nor 1 opens on the first entry.
            const int index = value ? leadingNumber(value->value()) : 0;
            Combo1->setCurrentIndex(index >= 0 && index < Combo1->count() ? index : 0);
        } else {
            if (const auto &possible = property.possibleValues()) {
                for (const std::string &each : *possible)
                    Combo1->addItem(qs(each));
            }
            const int match = value ? Combo1->findText(qs(value->value()), Qt::MatchExactly) : -1;
            Combo1->setCurrentIndex(std::max(match, 0));
        }
        Combo1->show();
        Combo1->raise();
        Combo1->setFocus();
        return;
    }
    if (type == "Datetime") {
        placeOver(DTPicker1, twipsToPixels(350));
        if (value)
            DTPicker1->setDateTime(value->value().empty() ? QDateTime::currentDateTime()
                                                          : ISO8601ToDate(value->value()));
        DTPicker1->setDisplayFormat("dd'/'MM'/'yyyy' 'hh':'mm':'ss' 'AP");
        DTPicker1->show();
        DTPicker1->raise();
        DTPicker1->setFocus();
        return;
    }
    // No editor for a type the grid does not know; the seller is told, and the next cell
    // change ends the edition.
    raiseError(-10503,
               "La propiedad " + property.id() + " tiene un tipo de dato desconocido: " + type);
}

void ZorvantaPropertiesGrid::openPriceCell(const ZorvantaValue *value)
{
    SellerProduct &product = requiredSellerProduct();
    QComboBox *combo = priceCombo();
    placeOver(combo, combo->sizeHint().height());
    combo->clear();
    combo->addItems({qs(product.price1()), qs(product.price2()), qs(product.price3())});
    combo->setCurrentIndex(0);
    if (value) {
        if (gFreePriceEntry)
            combo->setEditText(qs(value->value()));
        else
            combo->setCurrentIndex(0);
    }
    combo->show();
    combo->raise();
    combo->setFocus();
}

void ZorvantaPropertiesGrid::openDiscountCell(const ZorvantaProperty &property,
                                              const ZorvantaValue *value, double sellerPrice)
{
    if (!isPricedId(property.id()))
        return;
    if (!gFreePriceEntry) {
        // Prices come from the ERP's list: there is no discount to type.
        editing = false;
        return;
    }
    const std::string listPriceValue = listPriceText();
    const double listPrice = listPriceValue.empty() ? sellerPrice : currencyValue(listPriceValue);
    Text1->setMaxLength(17);
    placeOver(Text1, 0);
    if (!value) {
        Text1->setText("100");
    } else if (!(listPrice > 0)) {
        ui().msgBox("Por favor ingrese un precio de lista mayor que cero.", MessageStyle::Plain,
                    MessageButtons::Ok, "Error de entrada");
    } else {
        const double price = value->value().empty() ? sellerPrice : decimalValue(value->value());
        Text1->setText(qs(doubleText(100 - (price / listPrice) * 100)));
    }
    Text1->show();
    Text1->raise();
    Text1->setFocus();
    Text1->setSelection(0, static_cast<int>(Text1->text().size()));
    editing = true;
}

void ZorvantaPropertiesGrid::endEdition()
{
    endEditionErr();
}

void ZorvantaPropertiesGrid::endEditionErr()
{
    withHandler(label("endEditionErr"), [&] {
        if (!editing || !gridReady)
            return;
        editing = false;
        setSelectedCellMarking(true);
        const auto property = findProperty(m_editRow, m_editCol);
        if (!property) {
            abortEdition();
            return;
        }
        double listPrice = 0;
        if (showPrices) {
            const std::string listPriceValue = listPriceText();
            listPrice = currencyValue(listPriceValue.empty() ? requiredSellerProduct().price1()
                                                             : listPriceValue);
        }
        const std::string &id = property->id();
        if (m_editCol == 2) {
            endDiscount(property, listPrice);
            return;
        }
        if (m_editCol == 1 && isPricedId(id)) {
            endPrice(property, listPrice);
            return;
        }
        if (m_editCol == 1 && id == kListPrice) {
            endListPrice(property);
            return;
        }
        if (endTypedCell(property))
            hideEditors();
    });
}

void ZorvantaPropertiesGrid::endDiscount(const std::shared_ptr<ZorvantaProperty> &property,
                                         double listPrice)
{
    if (CompareFloats(Text1->text().toStdString(), "100") == 1) {
        ui().msgBox(std::string(kTooLarge) + "100");
        abortEdition();
        return;
    }
    if (Text1->text().isEmpty())
        Text1->setText("100");
    const double discount = decimalValue(Text1->text().toStdString());
    storeValue(property, doubleText(roundCents((100 - discount) / 100 * listPrice)));
    setTextMatrix(m_editRow, 2, Text1->text().toStdString());
    setTextMatrix(m_editRow, 1, findValue(*property)->value());
    setCellBackColor(m_editRow, 1, kNoMark);
    setCellBackColor(m_editRow, 2, kNoMark);
    hideEditors();
}

void ZorvantaPropertiesGrid::endPrice(const std::shared_ptr<ZorvantaProperty> &property,
                                      double listPrice)
{
    const std::string typed = priceCombo()->currentText().toStdString();
    const std::string price = typed.empty() ? "0" : typed;
    storeValue(property, price);
    setTextMatrix(m_editRow, 1, price);
    setTextMatrix(m_editRow, 2, discountAfterPrice(price, listPrice));
    setCellBackColor(m_editRow, 1, kNoMark);
    setCellBackColor(m_editRow, 2, kNoMark);
    hideEditors();
}

void ZorvantaPropertiesGrid::endListPrice(const std::shared_ptr<ZorvantaProperty> &property)
{
    const std::string typed = priceCombo()->currentText().toStdString();
    const std::string price = typed.empty() ? "0" : typed;
    storeValue(property, price);
    setTextMatrix(m_editRow, 1, price);
    hideEditors();
    // The prices stay as they are; only their discounts follow the new list price.
    const double listPrice = currencyValue(findValue(*property)->value());
    for (int row = 1; row < Rows(); ++row) {
        const auto rowProperty = findProperty(row, 1);
        if (rowProperty && isPricedId(rowProperty->id()))
            setTextMatrix(row, 2, discountAfterPrice(textMatrix(row, 1), listPrice));
    }
}

bool ZorvantaPropertiesGrid::endTypedCell(const std::shared_ptr<ZorvantaProperty> &property)
{
    const std::string &type = property->dataType();
    std::string text;
    std::string shown;
    if (const TypeLimit *limits = typeLimit(type)) {
        text = Text1->text().toStdString();
        if (type == "Float" || type == "Double") {
            if (!ValidateFloat(text)) {
                ui().msgBox(type == "Double"
                                ? "El numero debe ser un numero positivo y además entero, con "
                                  "decimales o en notación científica (por ejemplo: 3.456E-45)"
                                : "El numero debe ser un numero positivo y además entero o con "
                                  "decimales.");
                abortEdition();
                return false;
            }
        }
        const std::string &maxValue = property->maxValue();
        const std::string limit = maxValue.empty() ? inGridForm(limits->limit) : maxValue;
        if (CompareFloats(text, limit) == 1) {
            ui().msgBox(kTooLarge + (maxValue.empty() ? std::string(limits->message) : maxValue));
            abortEdition();
            return false;
        }
        if (text.empty())
            text = "0";
        shown = text;
    } else if (type == "String" || type == "FilePath") {
        text = shown = Text1->text().toStdString();
    } else if (type == "Datetime") {
        text = DateToISO8601(DTPicker1->dateTime());
        shown = machineDateText(DTPicker1->dateTime());
    } else if (type == "Enumeration") {
        text = shown = Combo1->currentText().toStdString();
    } else if (type == "Boolean") {
        text = shown = Combo1->currentText().left(1).toStdString();
    } else {
        // A type no editor opened for: nothing was typed, nothing is written.
        return true;
    }
    storeValue(property, text);
    setTextMatrix(m_editRow, m_editCol, shown);
    return true;
}

void ZorvantaPropertiesGrid::storeValue(const std::shared_ptr<ZorvantaProperty> &property,
                                        const std::string &text)
{
    if (const auto value = findValue(*property)) {
        value->setValue(text);
        return;
    }
    if (!m_values)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    auto value = std::make_shared<ZorvantaValue>();
    value->setDefinition(property);
    value->setValue(text);
    m_values->add(value, property->id());
    setCellBackColor(m_editRow, m_editCol, kNoMark);
}

void ZorvantaPropertiesGrid::abortEdition()
{
    withHandler(label("abortEdition"), [&] {
        editing = false;
        hideEditors();
    });
}

// ---------------------------------------------------------------------------------------------
// Keys and events.

KeyRule ZorvantaPropertiesGrid::text1Rule(int &decimals)
{
    if (m_editCol == 2) {
        decimals = 13;
        return KeyRule::Decimal;
    }
    const std::string &type = findProperty(m_editRow, m_editCol)->dataType();
    if (type == "Float" || type == "Double") {
        decimals = 4;
        return KeyRule::Decimal;
    }
    if (type == "Currency") {
        decimals = 2;
        return KeyRule::Decimal;
    }
    if (type == "Integer" || type == "Biginteger")
        return KeyRule::Digits;
    return KeyRule::Anything;
}

bool ZorvantaPropertiesGrid::Text1_KeyPress(QChar key)
{
    return withHandler(label("Text1_KeyPress"), [&] {
        if (!editing || !findProperty(m_editRow, m_editCol))
            return true;
        int decimals = 0;
        const KeyRule rule = text1Rule(decimals);
        // A key that replaces a selection is judged against the text it replaces.
        const int start = Text1->hasSelectedText() ? static_cast<int>(Text1->selectionStart())
                                                   : Text1->cursorPosition();
        return keyAccepted(rule, decimals, Text1->text(), start, key);
    });
}

bool ZorvantaPropertiesGrid::Combo2_KeyPress(QChar key)
{
    return withHandler(label("Combo2_KeyPress"), [&] {
        if (!editing)
            return true;
        const QLineEdit *edit = Combo2->lineEdit();
        const int start = edit->hasSelectedText() ? static_cast<int>(edit->selectionStart())
                                                  : edit->cursorPosition();
        return keyAccepted(KeyRule::Decimal, 2, edit->text(), start, key);
    });
}

bool ZorvantaPropertiesGrid::eventFilter(QObject *watched, QEvent *event)
{
    bool swallow = false;
    guardEvent([&] {
        if (event->type() == QEvent::KeyPress) {
            const std::optional<QChar> key = typedCharacter(event);
            if (key && watched == Text1)
                swallow = !Text1_KeyPress(*key);
            else if (key && watched == Combo2)
                swallow = !Combo2_KeyPress(*key);
            return;
        }
        if (event->type() != QEvent::KeyRelease)
            return;
        if (watched == MSFlexGrid1) {
            const auto *keyEvent = static_cast<const QKeyEvent *>(event);
            if (!keyEvent->isAutoRepeat())
                MSFlexGrid1_KeyUp(keyEvent->key(),
                                  keyEvent->modifiers().testFlag(Qt::KeypadModifier));
            return;
        }
        if (!isEnterRelease(event))
            return;
        if (watched == Text1) {
            withHandler(label("Text1_KeyUp"), [this] { endEdition(); });
        } else if (watched == Combo1 || watched == Combo2 || watched == DTPicker1) {
            const std::string control = watched->objectName().toStdString();
            withHandler(label("") + control + "_KeyUp", [this] {
                if (m_canEdit)
                    endEdition();
            });
        }
    });
    return swallow || QWidget::eventFilter(watched, event);
}

void ZorvantaPropertiesGrid::MSFlexGrid1_KeyUp(int key, bool keypad)
{
    withHandler(label("MSFlexGrid1_KeyUp"), [&] {
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        const bool keypadPlus = key == Qt::Key_Plus && keypad;
        if (m_canEdit && !editing && (enter || keypadPlus))
            startEdition();
        else if (!m_canEdit && enter)
            ShowPopUpInfo(Row());
    });
}

void ZorvantaPropertiesGrid::MSFlexGrid1_EnterCell(int row, int column, int previousRow,
                                                   int previousColumn)
{
    withHandler(label("MSFlexGrid1_LeaveCell"), [&] {
        if (m_canEdit && (row != previousRow || column != previousColumn))
            endEdition();
        // The names' column never holds the current cell: the grid moves on to the value.
        if (row >= 0 && column == 0) {
            MSFlexGrid1->setCurrentCell(row, 1);
            return;
        }
        if (!m_canEdit && gridReady)
            DrawCellButtons();
    });
}
