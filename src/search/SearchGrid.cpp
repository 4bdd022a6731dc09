#include "search/SearchGrid.h"

#include "platform/KeyCodes.h"
#include "platform/Twips.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace Varnel_Controles {

SearchGrid::SearchGrid(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
}

int SearchGrid::Row() const
{
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void SearchGrid::setRow(int row)
{
    if (model() && row >= 0 && row < model()->rowCount())
        setCurrentIndex(model()->index(row, 0));
}

int SearchGrid::TopRow() const
{
    const int row = rowAt(0);
    return row < 0 ? 0 : row;
}

int SearchGrid::VisibleRows() const
{
    const int row = qMax(1, verticalHeader()->defaultSectionSize());
    return (viewport()->height() + row - 1) / row;
}

void SearchGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    Q_EMIT ViewResized();
}

int SearchGrid::Rows() const
{
    return model() ? model()->rowCount() : 0;
}

void SearchGrid::setColWidth(int column, int twips)
{
    setColumnWidth(column, Twips::toPixels(twips, this));
}

void SearchGrid::keyPressEvent(QKeyEvent *event)
{
    qint16 keyCode = KeyCodes::keyCode(event);
    qint16 shift = KeyCodes::shiftState(event);
    Q_EMIT KeyDown(keyCode, shift);
    if (keyCode == 0) {
        event->accept();
        return;
    }
    qint16 keyAscii = KeyCodes::keyAscii(event);
    if (keyAscii != 0) {
        Q_EMIT KeyPress(keyAscii);
        if (keyAscii == 0 || keyAscii == 13) { // Enter belongs to the dialog, not to the default button
            event->accept();
            return;
        }
    }
    QTableView::keyPressEvent(event);
}

} // namespace Varnel_Controles
