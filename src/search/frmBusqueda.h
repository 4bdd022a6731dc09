// What every search dialog shares: filter boxes that upper-case as typed, a grid filled page
// by page from a recordset kept open for the dialog's life (always a page beyond what it shows
// while more rows exist, so it scrolls at any size), the keys between filter and grid, Accept
// (exec() gives Accepted), Cancel, Esc and the close box (Rejected). A dialog gives its
// statement, its row cells and its result.
#pragma once

#include "varnel_controles_export.h"

#include <QDialog>
#include <memory>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace Varnel_Controles {

class PagedRecordsetModel;
class Recordset;
class SearchGrid;
class TextField;

class VARNEL_CONTROLES_EXPORT frmBusqueda : public QDialog
{
    Q_OBJECT

public:
    ~frmBusqueda() override;

    /// Rows per page: the first page of a search and each PageDown page.
    int pageSize() const;

protected:
    frmBusqueda(const QString &name, const QString &caption, const QString &label1, const QString &label2,
                int columns, int pageSize, QWidget *parent);

    /// Empties the grid, (re)opens the recordset on `statement`, loads the first page and
    /// makes row 0 current with the focus in the grid. A database failure is thrown to the
    /// caller (DbError); the grid is then empty and ready for the next search.
    void search(const QString &statement);
    /// Runs the dialog's search from its filter boxes (Enter in the last box).
    virtual void searchFromFilters() = 0;
    /// The grid cells of the recordset's current record.
    virtual QStringList rowCells(const Recordset &recordset) const = 0;
    /// Accept: the result from grid row `row` (the dialog is already hidden). By default the
    /// code is the number in column 0 and the name the text of column 1.
    virtual void takeRow(int row);
    /// Cancel and the close box: code 0 and an empty name.
    virtual void clearResult();
    /// A name followed by " / " and the trade name, when the trade name is neither NULL nor empty.
    static QString withTradeName(const QString &name, const QVariant &tradeName);
    /// Enter in a filter box; by default it searches.
    virtual void filterEnter(TextField *box);
    /// Key-down in a filter box, after Down (to the grid) was handled.
    virtual void filterKeyDown(TextField *box, qint16 keyCode);

    /// Adds a filter box named `name` (the first is `txtNombre`, created by the base), read out
    /// by assistive technology as `accessibleName`. Filter boxes take at most 80 characters.
    TextField *addFilter(const QString &name, const QString &accessibleName);
    /// Light cyan while the box has the focus, the window colour after.
    void paintFocus(TextField *box);
    void setColumn(int column, int widthTwips, Qt::Alignment alignment);
    /// Text of a grid cell.
    QString cell(int row, int column) const;
    /// Moves to the grid's row 0 when it has rows.
    void focusGrid();

    QLabel *lbl1;
    QLabel *lbl2;
    TextField *txtNombre;
    SearchGrid *vsListado;
    QPushButton *cmdAceptar;
    QPushButton *cmdCancelar;
    QHBoxLayout *m_filters;
    PagedRecordsetModel *m_model;
    qint32 m_codigo = 0; // the result
    QString m_nombre;

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    void onAceptar();
    void onCancelar();
    void onGridKeyDown(qint16 &keyCode, qint16 &shift);
    void onGridKeyPress(qint16 &keyAscii);
    void connectFilter(TextField *box);
    void fillView();

    std::unique_ptr<Recordset> m_recordset;
    bool m_adding = false; // rows are being added: scroll notifications are not user scrolls
};

} // namespace Varnel_Controles
