// First article search: articles of the company by description, code, supplier reference,
// supplier and families, listed by description with their principal barcode. End and Ctrl+End
// go to the last row read (a page is read beyond it: the scrollbar shows when more exist). In extended mode
// the description filter also searches the long description, and the detail area
// (`fraExtendido`) shows the current article: its long description (`txtObserv`), its stock in
// the dialog's warehouse (`lblStock`, `lblPendServir`, `lblDisponible` in dark red when 0 or
// less and dark blue above, `lblPendRecibir`), its price for the dialog's customer (`lblPvp`:
// the customer's own price in force today, else the customer's promotional tariff, else the
// normal tariff, a zero price never counting) and its photo (`picFoto`: the company's image
// folder, the code and ".jpg", a regular file of at most 20 MB; "<<< Imagen no disponible >>>" in
// `lblFotoCargando` when there is no such readable picture). A database failure there is shown titled
// "frmBusqueda_Articulos_1::DevPropiedades"; the grid stays usable. While no row is current (a
// search that found nothing, or failed) the area is empty: amounts "0,00", no text, no photo.
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda_Articulos.h"

class QLabel;
class QPlainTextEdit;

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Articulos_1 : public frmBusqueda_Articulos
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_1(QWidget *parent = nullptr);
    ~frmBusqueda_Articulos_1() override;

    void setExtendido(bool value) override;

    /// The search statement: "SELECT a.Codigo, a.Descripcion, … FROM Articulos a  LEFT JOIN
    /// Articulos_CBarras b … WHERE a.Cod_Empresa =1" + the conditions + " ORDER BY a.Descripcion".
    static QString statement(qint16 empresa, const QString &condiciones);
    /// A quantity or price as the detail area shows it: "1.234,50".
    static QString importe(double value);

protected:
    QString statement(qint16 empresa, const FiltroArticulos &filtro) override;
    QStringList rowCells(const Recordset &recordset) const override;
    void load(qint16 empresa) override;

private:
    void DevPropiedades(int row);
    void clearDetail();
    double price(qint16 empresa, const QString &code);
    void showPhoto(const QString &code);

    QFrame *fraExtendido;
    QPlainTextEdit *txtObserv;
    QLabel *lblStock, *lblPendServir, *lblDisponible, *lblPendRecibir, *lblPvp;
    QLabel *picFoto, *lblFotoCargando;
    QString m_dirImagenArt; // read once as the dialog opens
};

} // namespace Varnel_Controles
