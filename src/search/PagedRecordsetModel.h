// The rows of a search grid, pulled on demand from a recordset that stays open: a page after
// each search, another page when PageDown reaches the second-to-last row, one row for each
// scroll that moves the top row down, and whatever the grid needs to show more rows than fit.
// Rows are never re-read (the recordset is forward-only). The rows are kept compactly (each
// row's cells as UTF-8 text in large shared blocks, with the cells' end offsets), the grid's
// texts made as it asks for them: a million rows of eleven cells hold some 150 MB, not a GB.
#pragma once

#include "varnel_controles_export.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <vector>

namespace Varnel_Controles {

class Recordset;

class VARNEL_CONTROLES_TESTS_EXPORT PagedRecordsetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Turns the recordset's current row into the grid's cells (a cell may hold any text, TAB too).
    using RowCells = std::function<QStringList(const Recordset &)>;

    PagedRecordsetModel(int columns, int pageSize, QObject *parent = nullptr);

    int pageSize() const { return m_pageSize; }
    /// Empties the grid and forgets the last top row (the recordset is left alone).
    void clear();
    /// Reads from `recordset` from now on (not owned; null stops the reading).
    void setSource(Recordset *recordset, RowCells rowCells);
    /// Adds up to `count` rows from the recordset; returns how many were added.
    int fetch(int count);
    /// Adds rows until there are `rows` of them or the recordset ends; returns how many were added.
    int fetchUpTo(int rows) { return fetch(rows - rowCount()); }
    /// Adds every row left in the recordset; returns how many were added.
    int fetchAll();
    /// PageDown on `currentRow`: a page is added only when it is the second-to-last row.
    /// `topRow` is asked after each added row and kept as the last top row.
    int pageDown(int currentRow, const std::function<int()> &topRow);
    /// The grid scrolled: one row is added when the top row moved below the last one seen.
    int scrolled(int topRow);
    int lastTopRow() const { return m_lastTopRow; }
    bool sourceAtEnd() const;

    /// Adds one row of cells.
    void addItem(const QStringList &cells);
    QString cell(int row, int column) const;
    void setColumnAlignment(int column, Qt::Alignment alignment);
    /// The texts of the grid's header row, one per column; none (the default) for a grid
    /// without a header row.
    void setHeaders(const QStringList &headers);
    bool hasHeaders() const { return !m_headers.isEmpty(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int m_columns;
    int m_pageSize;
    int m_lastTopRow = 0;
    // Cell c of row r: bytes [end(c-1), end(c)) from the row's start, end(-1) = 0, where
    // end(c) = m_cellEnd[m_rowFirstCell[r] + c] and the row has m_rowFirstCell[r+1] - that cells.
    std::vector<std::vector<char>> m_blocks; // UTF-8 text; a block never moves once filled
    std::vector<quint64> m_rowStart;         // block index << 32 | offset in the block
    std::vector<quint32> m_rowFirstCell;     // one per row, and the end after the last row
    std::vector<quint32> m_cellEnd;
    QList<Qt::Alignment> m_alignment;
    QStringList m_headers;
    Recordset *m_source = nullptr;
    RowCells m_rowCells;
};

} // namespace Varnel_Controles
