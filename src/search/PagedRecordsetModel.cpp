#include "search/PagedRecordsetModel.h"

#include "data/Recordset.h"

namespace Varnel_Controles {

namespace {

constexpr size_t kBlockBytes = size_t(1) << 20;

} // namespace

PagedRecordsetModel::PagedRecordsetModel(int columns, int pageSize, QObject *parent)
    : QAbstractTableModel(parent), m_columns(columns), m_pageSize(pageSize)
{
    for (int i = 0; i < columns; ++i)
        m_alignment << (Qt::AlignLeft | Qt::AlignVCenter);
}

void PagedRecordsetModel::clear()
{
    beginResetModel();
    m_blocks = {};
    m_rowStart = {};
    m_rowFirstCell = {};
    m_cellEnd = {};
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
    QByteArray text;
    std::vector<quint32> ends;
    ends.reserve(size_t(cells.size()));
    for (const QString &c : cells) {
        text += c.toUtf8();
        ends.push_back(quint32(text.size()));
    }
    // A row stays in one block: a new block when it does not fit (one of its own when larger).
    if (m_blocks.empty() || m_blocks.back().capacity() - m_blocks.back().size() < size_t(text.size())) {
        m_blocks.emplace_back();
        m_blocks.back().reserve(qMax(kBlockBytes, size_t(text.size())));
    }
    std::vector<char> &block = m_blocks.back();
    const int row = rowCount();
    beginInsertRows({}, row, row);
    if (m_rowFirstCell.empty())
        m_rowFirstCell.push_back(0);
    m_rowStart.push_back(quint64(m_blocks.size() - 1) << 32 | quint64(block.size()));
    block.insert(block.end(), text.cbegin(), text.cend());
    m_cellEnd.insert(m_cellEnd.end(), ends.cbegin(), ends.cend());
    m_rowFirstCell.push_back(quint32(m_cellEnd.size()));
    endInsertRows();
}

QString PagedRecordsetModel::cell(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0)
        return QString();
    const size_t first = m_rowFirstCell[size_t(row)];
    if (column >= qint64(m_rowFirstCell[size_t(row) + 1] - first))
        return QString();
    const quint32 from = column == 0 ? 0 : m_cellEnd[first + size_t(column) - 1], to = m_cellEnd[first + size_t(column)];
    const quint64 start = m_rowStart[size_t(row)];
    const char *text = m_blocks[size_t(start >> 32)].data() + (start & 0xFFFFFFFFu);
    return QString::fromUtf8(text + from, qsizetype(to - from));
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
    return parent.isValid() ? 0 : int(m_rowStart.size());
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
