#include "editors/ProductListGrid.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>

ProductListGrid::ProductListGrid(const QStringList &headings, QWidget *parent)
    : QTableWidget(parent), m_headings(headings)
{
    setObjectName("MSFlexGrid1");
    setColumnCount(static_cast<int>(m_headings.size()));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    clearLines();

    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int, int previous) {
        if (!m_selecting && row != previous && row >= 0 && row < m_lines)
            emit SelChange();
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { emit Scroll(); });
}

void ProductListGrid::clearLines()
{
    const QSignalBlocker quiet(this);
    clearContents();
    setRowCount(1);
    m_lines = 0;
    AddHeadings();
}

void ProductListGrid::AddHeadings()
{
    setHorizontalHeaderLabels(m_headings);
    // The first columns are codes and take less room than the description after them.
    const int columns = columnCount();
    if (columns == 0)
        return;
    const int share = viewport()->width() / (columns + 1);
    for (int column = 0; column + 1 < columns; ++column)
        setColumnWidth(column, column == 1 ? 2 * share : share);
}

void ProductListGrid::addLine(const std::string &line)
{
    const QStringList cells = QString::fromStdString(line).split('\t');
    // The blank line of an empty list is the first line's place.
    if (m_lines > 0)
        insertRow(m_lines);
    for (int column = 0; column < columnCount(); ++column)
        setItem(m_lines, column, new QTableWidgetItem(column < cells.size() ? cells[column] : ""));
    ++m_lines;
}

int ProductListGrid::Row() const
{
    const int row = currentRow();
    return row >= 0 && row < m_lines ? row + 1 : 0;
}

void ProductListGrid::setRow(int row)
{
    m_selecting = true;
    setCurrentCell(row - 1, 0);
    m_selecting = false;
}

int ProductListGrid::TopRow() const
{
    const int row = rowAt(0);
    return row < 0 ? 1 : row + 1;
}

int ProductListGrid::visibleRows() const
{
    return height() / rowHeight(0) + 1;
}

void ProductListGrid::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    AddHeadings();
    emit Resized();
}
