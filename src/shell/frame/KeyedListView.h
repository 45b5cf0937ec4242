#pragma once

#include <QColor>
#include <QTreeWidget>
#include <string>
#include <vector>

/// A report-style list of rows, each known by a text key, as the wizard pages show them
/// ("ListView1", "ListView2"). The columns share the width equally.
class KeyedListView : public QTreeWidget
{
    Q_OBJECT
public:
    KeyedListView(const QString &controlName, const QStringList &headers, QWidget *parent);

    void addRow(const std::string &key, const std::vector<std::string> &columns);
    /// Selects the row under `key`; InvalidCall (5) when no row has it.
    void selectRow(const std::string &key);
    /// Selects the first row, if there is one.
    void selectFirstRow();
    /// Paints every text of the row under `key`; InvalidCall (5) when no row has it.
    void setRowColor(const std::string &key, const QColor &color);
    /// Gives each column an equal share of the width, the last one what rounding leaves.
    void fitColumns();

    bool hasSelection() const { return currentItem() != nullptr; }
    /// The selected row's key; empty when no row is selected.
    std::string selectedKey() const;
    /// A column (0-based) of the selected row; empty when no row is selected.
    std::string selectedText(int column) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QTreeWidgetItem &rowOfKey(const std::string &key) const;
};
