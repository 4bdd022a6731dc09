#include "search/PagedRecordsetModel.h"

#include "data/Recordset.h"

namespace Varnel_Controles {

PagedRecordsetModel::PagedRecordsetModel(int columns, int pageSize, QObject *parent)
    : QAbstractTableModel(parent), m_columns(columns), m_pageSize(pageSize)
{
    for (int i = 0; i < columns; ++i)
        m_alignment << (Qt::AlignLeft | Qt::AlignVCenter);
}

void PagedRecordsetModel::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
    m_lastTopRow = 0;
}

void PagedRecordsetModel::setSource(Recordset *recordset, RowCells rowCells)
{
    m_source = recordset;
    m_rowCells = std::move(rowCells);
}

bool PagedRecordsetModel::sourceAtEnd() const
{
    return !m_source || !m_source->isOpen() || m_source->eof();
}

int PagedRecordsetModel::fetch(int count)
{
    int added = 0;
    while (added < count && !sourceAtEnd()) {
        addItem(m_rowCells(*m_source));
        m_source->moveNext();
        ++added;
    }
    return added;
}

int PagedRecordsetModel::fetchAll()
{
    int added = 0;
    while (!sourceAtEnd())
        added += fetch(m_pageSize);
    return added;
}

int PagedRecordsetModel::pageDown(int currentRow, const std::function<int()> &topRow)
{
    if (currentRow != rowCount() - 2 || !m_source || !m_source->isOpen())
        return 0;
    int added = 0;
    while (added < m_pageSize && !sourceAtEnd()) {
        added += fetch(1);
        m_lastTopRow = topRow();
    }
    return added;
}

int PagedRecordsetModel::scrolled(int topRow)
{
    int added = 0;
    if (topRow > m_lastTopRow && !sourceAtEnd())
        added = fetch(1);
    m_lastTopRow = topRow;
    return added;
}

void PagedRecordsetModel::addItem(const QStringList &cells)
{
    const int row = int(m_rows.size());
    beginInsertRows({}, row, row);
    m_rows << cells;
    endInsertRows();
}

QString PagedRecordsetModel::cell(int row, int column) const
{
    if (row < 0 || row >= m_rows.size() || column < 0 || column >= m_rows[row].size())
        return QString();
    return m_rows[row][column];
}

void PagedRecordsetModel::setColumnAlignment(int column, Qt::Alignment alignment)
{
    if (column >= 0 && column < m_alignment.size())
        m_alignment[column] = alignment;
}

void PagedRecordsetModel::setHeaders(const QStringList &headers)
{
    m_headers = headers;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
}

QVariant PagedRecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_headers.size())
        return QVariant();
    if (role == Qt::DisplayRole)
        return m_headers[section];
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(m_alignment.value(section));
    return QVariant();
}

int PagedRecordsetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int PagedRecordsetModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant PagedRecordsetModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    if (role == Qt::DisplayRole)
        return cell(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(m_alignment.value(index.column()));
    return QVariant();
}

} // namespace Varnel_Controles
