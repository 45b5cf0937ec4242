#pragma once

#include <QTreeWidget>
#include <string>
#include <vector>

/// A list of rows in three columns, each row known by a text key: the list view of the
/// ministore pages (its control name is ListView1). Each column takes a third of the width,
/// unless its texts need more and another column can spare it.
class KeyedListView : public QTreeWidget
{
    Q_OBJECT
public:
    KeyedListView(const QStringList &headers, QWidget *parent);

    void addRow(const std::string &key, const std::vector<std::string> &columns);
    /// Selects the row under `key`; InvalidCall (5) when no row has it.
    void selectRow(const std::string &key);
    /// Selects the first row, if there is one.
    void selectFirstRow();
    /// Shares the width among the columns again, after the rows changed.
    void fitColumns();

    bool hasSelection() const { return currentItem() != nullptr; }
    /// The selected row's key; empty when no row is selected.
    std::string selectedKey() const;
    /// A column (0-based) of the selected row; empty when no row is selected.
    std::string selectedText(int column) const;

protected:
    void resizeEvent(QResizeEvent *event) override;
};
