#include "wizards/ministores/KeyedListView.h"

#include "platform/core/RaisedError.h"

#include <QHeaderView>

KeyedListView::KeyedListView(const QStringList &headers, QWidget *parent) : QTreeWidget(parent)
{
    setObjectName("ListView1");
    setHeaderLabels(headers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // Each column keeps a third of the width, whatever the window's size.
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->setSectionsMovable(false);
}

void KeyedListView::addRow(const std::string &key, const std::vector<std::string> &columns)
{
    auto *item = new QTreeWidgetItem(this);
    item->setData(0, Qt::UserRole, QString::fromStdString(key));
    for (std::size_t column = 0; column < columns.size(); ++column)
        item->setText(static_cast<int>(column), QString::fromStdString(columns[column]));
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
