// The result grid of the search dialogs (`vsListado`): whole-row selection, no headers unless
// asked, rows as the model gives them. Keys reach the dialog as legacy key events before the
// grid's own movement; a handler that zeroes KeyCode or KeyAscii cancels the key.
#pragma once

#include "varnel_controles_export.h"

#include <QTableView>

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT SearchGrid : public QTableView
{
    Q_OBJECT

public:
    explicit SearchGrid(QWidget *parent = nullptr);

    /// The current row, -1 when there is none.
    int Row() const;
    void setRow(int row);
    /// The first visible row.
    int TopRow() const;
    /// How many rows the view shows at its size (a row partly shown counts).
    int VisibleRows() const;
    int Rows() const;
    /// Column width in twips.
    void setColWidth(int column, int twips);

Q_SIGNALS:
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    /// The view changed its size: it may show more rows than before.
    void ViewResized();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace Varnel_Controles
