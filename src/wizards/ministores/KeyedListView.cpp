#include "wizards/ministores/KeyedListView.h"

#include "platform/core/RaisedError.h"

#include <QHeaderView>
#include <algorithm>
#include <cstdlib>
#include <vector>

KeyedListView::KeyedListView(const QStringList &headers, QWidget *parent) : QTreeWidget(parent)
{
    setObjectName("ListView1");
    setHeaderLabels(headers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
}

void KeyedListView::addRow(const std::string &key, const std::vector<std::string> &columns)
{
    auto *item = new QTreeWidgetItem(this);
    item->setData(0, Qt::UserRole, QString::fromStdString(key));
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const QString text = QString::fromStdString(columns[column]);
        item->setText(static_cast<int>(column), text);
        // A text longer than its column can still be read whole.
        item->setToolTip(static_cast<int>(column), text);
    }
}

void KeyedListView::fitColumns()
{
    const int columns = columnCount();
    if (columns == 0)
        return;
    const int available = viewport()->width();
    const int third = available / columns;
    // How much each column lacks (negative) or can spare (positive) at a third of the width.
    std::vector<int> room;
    int missing = 0;
    int spare = 0;
    for (int column = 0; column < columns; ++column) {
        const int needed = std::max(sizeHintForColumn(column), header()->sectionSizeHint(column));
        room.push_back(third - needed);
        (room.back() < 0 ? missing : spare) += std::abs(room.back());
    }
    // Columns with room give it, in proportion, to the columns whose texts would be cut; the
    // last column takes what rounding left, so that together they fill the list exactly.
    const int moved = std::min(missing, spare);
    int used = 0;
    for (int column = 0; column + 1 < columns; ++column) {
        const int gap = room[static_cast<std::size_t>(column)];
        const int width = moved == 0 ? third : third - gap * moved / (gap < 0 ? missing : spare);
        setColumnWidth(column, width);
        used += width;
    }
    setColumnWidth(columns - 1, available - used);
}

void KeyedListView::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    fitColumns();
}

void KeyedListView::selectRow(const std::string &key)
{
    const QString wanted = QString::fromStdString(key);
    for (int row = 0; row < topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = topLevelItem(row);
        if (item->data(0, Qt::UserRole).toString() == wanted) {
            setCurrentItem(item);
            scrollToItem(item);
            return;
        }
    }
    raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
}

void KeyedListView::selectFirstRow()
{
    if (topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0));
}

std::string KeyedListView::selectedKey() const
{
    const QTreeWidgetItem *item = currentItem();
    return item ? item->data(0, Qt::UserRole).toString().toStdString() : std::string();
}

std::string KeyedListView::selectedText(int column) const
{
    const QTreeWidgetItem *item = currentItem();
    return item ? item->text(column).toStdString() : std::string();
}
