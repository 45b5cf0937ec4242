#pragma once

#include <QStringList>
#include <QTableWidget>
#include <string>

/// The product list of the wizard pages (`MSFlexGrid1`): a row of headings, then one line per
/// product, whole lines selected one at a time. Lines are counted from 1, as the page's own
/// collection of what it shows, so that the selected line is the index of its entry. An empty
/// list keeps one blank line under the headings.
class ProductListGrid : public QTableWidget
{
    Q_OBJECT
public:
    ProductListGrid(const QStringList &headings, QWidget *parent);

    /// Empties the list down to the headings and one blank line.
    void clearLines();
    /// Writes the headings and spreads the columns over the width.
    void AddHeadings();
    /// Adds a line at the end; `line` holds the columns with a tab between them.
    void addLine(const std::string &line);
    /// The lines added since the list was last emptied.
    int lineCount() const { return m_lines; }

    /// The selected line, from 1; 0 when none is.
    int Row() const;
    /// Selects a line without raising SelChange: the page shows it itself.
    void setRow(int row);
    /// The line at the top of the view, from 1.
    int TopRow() const;
    /// How many lines the view can show at once, counting the one cut at its foot.
    int visibleRows() const;

signals:
    /// The person moved to another line.
    void SelChange();
    /// The view moved: lines further down may be needed.
    void Scroll();
    /// The list changed size: it may show more lines than it holds.
    void Resized();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QStringList m_headings;
    int m_lines = 0;
    bool m_selecting = false;
};
