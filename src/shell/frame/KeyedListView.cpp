#include "shell/frame/KeyedListView.h"

#include "platform/core/RaisedError.h"

#include <QHeaderView>

KeyedListView::KeyedListView(const QString &controlName, const QStringList &headers,
                             QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(controlName);
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
    const int share = available / columns;
    for (int column = 0; column + 1 < columns; ++column)
        setColumnWidth(column, share);
    setColumnWidth(columns - 1, available - share * (columns - 1));
}

void KeyedListView::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    fitColumns();
}

QTreeWidgetItem &KeyedListView::rowOfKey(const std::string &key) const
{
    const QString wanted = QString::fromStdString(key);
    for (int row = 0; row < topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = topLevelItem(row);
        if (item->data(0, Qt::UserRole).toString() == wanted)
            return *item;
    }
    raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
}

void KeyedListView::selectRow(const std::string &key)
{
    QTreeWidgetItem &item = rowOfKey(key);
    setCurrentItem(&item);
    scrollToItem(&item);
}

void KeyedListView::setRowColor(const std::string &key, const QColor &color)
{
    QTreeWidgetItem &item = rowOfKey(key);
    for (int column = 0; column < columnCount(); ++column)
        item.setForeground(column, color);
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
