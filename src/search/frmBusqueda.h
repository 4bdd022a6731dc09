// What every search dialog shares: a grid filled page by page from a recordset kept open for
// the dialog's life (always a page beyond what it shows while more rows exist, so it scrolls at
// any size), the keys between the filters and the grid, Accept (exec() gives Accepted), Cancel,
// Esc and the close box (Rejected). A dialog adds its filters (the simple searches through
// addNameFilter: boxes that upper-case as typed), and gives its statement, its row cells and
// its result.
#pragma once

#include "varnel_controles_export.h"

#include <QDialog>
#include <functional>
#include <memory>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

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
    /// A dialog whose grid (`vsListado`) will have `columns` columns; the dialog adds its filters,
    /// then the grid and the buttons (addGrid, or addNameFilter which calls it).
    frmBusqueda(const QString &name, const QString &caption, int columns, int pageSize, QWidget *parent);

    /// Empties the grid, (re)opens the recordset on `statement`, loads the first page and
    /// makes row 0 current with the focus in the grid. A database failure is thrown to the
    /// caller (DbError); the grid is then empty and ready for the next search.
    void search(const QString &statement);
    /// Runs the dialog's search from its filter boxes (Enter in the last box).
    virtual void searchFromFilters() = 0;
    /// The grid cells of the recordset's current record.
    virtual QStringList rowCells(const Recordset &recordset) const = 0;
    /// Accept: the result from grid row `row`. By default the code is the number in column 0
    /// and the name the text of column 1.
    virtual void takeRow(int row);
    /// Cancel and the close box: code 0 and an empty name.
    virtual void clearResult();
    /// Where Up arrow on the grid's first row goes: the first filter box by default.
    virtual QWidget *firstFilter() const;
    /// A name followed by " / " and the trade name, when the trade name is neither NULL nor empty.
    static QString withTradeName(const QString &name, const QVariant &tradeName);
    /// A column as grid text; NULL gives an empty cell (as the legacy grid showed it).
    static QString cellText(const Recordset &recordset, const QString &column);
    /// Enter in a filter box; by default it searches.
    virtual void filterEnter(TextField *box);
    /// Key-down in a filter box, after Down (to the grid) was handled.
    virtual void filterKeyDown(TextField *box, qint16 keyCode);

    /// The simple name filter: `lbl1`, a row with the box `txtNombre` (read out by assistive
    /// technology as "Nombre") and `lbl2` (whose buddy is the grid), then the grid and the buttons.
    /// Returns the box; further boxes of the row are added with addFilter and placed in `m_filters`.
    TextField *addNameFilter(const QString &label1, const QString &label2);
    /// Adds the grid and the two buttons below what the layout holds: each dialog calls it once,
    /// after creating its filters (which then come first in the tab order).
    void addGrid();
    /// Adds a filter box named `name`, read out by assistive technology as `accessibleName`.
    /// Filter boxes upper-case as typed and take at most 80 characters.
    TextField *addFilter(const QString &name, const QString &accessibleName);
    /// Light cyan while the box has the focus, the window colour after.
    void paintFocus(TextField *box);
    void setColumn(int column, int widthTwips, Qt::Alignment alignment);
    /// The grid's header row (hidden while no texts are given).
    void setHeaders(const QStringList &headers);
    /// Text of a grid cell.
    QString cell(int row, int column) const;
    /// Moves to the grid's row 0 when it has rows.
    void focusGrid();
    /// Accept and Cancel store the result before the dialog hides, and Accept does nothing
    /// without a current row (the article searches). By default the dialog hides first and a
    /// grid without a current row gives its row 0.
    void setStoresResultFirst(bool value) { m_storesResultFirst = value; }
    /// End goes to the last row read and Ctrl+End reads every row left and goes to the last
    /// (a grid that fetches as it is scrolled). By default they are the grid's own keys.
    void setReadsToEnd(bool value) { m_readsToEnd = value; }
    /// End and Ctrl+End go to the last row read (the view then reads a page beyond it, so the
    /// scrollbar shows that more rows exist), reading nothing more. By default the grid's own keys.
    void setEndGoesToLastRead(bool value) { m_endGoesToLastRead = value; }

    /// The dialog's layout: the filters go before the grid, details after it.
    QVBoxLayout *m_layout;
    SearchGrid *vsListado = nullptr;
    QPushButton *cmdAceptar = nullptr;
    QPushButton *cmdCancelar = nullptr;
    QHBoxLayout *m_filters = nullptr; // the row of the simple name filter
    QHBoxLayout *m_buttons = nullptr; // the row of Accept and Cancel
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
    void readMore(const std::function<void()> &read);
    void readToEnd(bool everything);

    std::unique_ptr<Recordset> m_recordset;
    QWidget *m_firstFilter = nullptr;
    bool m_adding = false; // rows are being added: scroll notifications are not user scrolls
    bool m_storesResultFirst = false;
    bool m_readsToEnd = false;
    bool m_endGoesToLastRead = false;
};

} // namespace Varnel_Controles
