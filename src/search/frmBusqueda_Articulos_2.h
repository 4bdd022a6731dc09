// Second article search: the same filters as the first (the description never searches the
// long description), listed by code with each article's principal supplier reference, its
// prices in the first three tariffs of the dialog's warehouse ("Tarifa " and the tariff's code;
// a slot the warehouse does not fill is tariff 0 and shows 0) and its stock there ("Stock Alm "
// and the warehouse), numbers as the server writes them ("12,5"). The warehouse's tariffs are
// read as the dialog opens, and again by a search whose warehouse is not the one they were read
// for (a dialog reused with setAlmacen). Rows are read as the grid needs them: a screenful and a page
// beyond, more as the clerk scrolls or pages; End goes to the last row read and Ctrl+End reads
// to the end.
#pragma once

#include "varnel_controles_export.h"

#include "Enums.h"
#include "frmBusqueda_Articulos.h"

#include <array>

class QPushButton;

namespace Varnel_Controles {

class clsListado;

class VARNEL_CONTROLES_EXPORT frmBusqueda_Articulos_2 : public frmBusqueda_Articulos
{
    Q_OBJECT
    Q_PROPERTY(qint32 Destino READ Destino WRITE setDestino)
    Q_PROPERTY(QString Impresora READ Impresora WRITE setImpresora)
    Q_PROPERTY(QString Fichero READ Fichero WRITE setFichero)

public:
    struct Tarifa
    {
        qint16 codigo = 0;
        qint16 decimales = 0;
    };

    explicit frmBusqueda_Articulos_2(QWidget *parent = nullptr);

    /// A printable account of the filters: "Desc: " the description, "Prov: " the supplier's code
    /// and name, "Ref: " the reference, those not empty, joined by "  ". Empty without filters.
    Q_INVOKABLE QString DevCriterio() const;
    /// The statement of the last search (empty before the first).
    QString UltimaInstruccion() const { return m_ultimaInstruccion; }
    /// DevCriterio as it stood when the last search ran: the filters of the rows listed.
    QString UltimoCriterio() const { return m_ultimoCriterio; }

    /// The printed list of the last search: the title "Búsqueda de Artículos", the criteria of
    /// that search (UltimoCriterio, whatever the boxes hold now), the grid's shown columns and its
    /// rows, read again from the last statement as printing proceeds.
    clsListado Listado() const;
    /// Prints the list of the last search to `destino` (the printer by device name, the PDF file
    /// for kdFichero); see modListados::Imprimir. Without a search the clerk is told there is
    /// nothing to print. False when nothing was delivered.
    bool Imprimir(enmDestination destino, const QString &impresora = QString(), const QString &fichero = QString());
    /// Where the dialog's own Imprimir button (`cmdImprimir`) sends the list, as the host chose it
    /// with kdDispositivo and kdImpresoras: the screen (a print preview) unless set. A value that
    /// is no enmDestination (1-4) is refused with LegacyError 380. A failure of the button is told
    /// to the clerk, never thrown.
    qint32 Destino() const { return m_destino; }
    void setDestino(qint32 value);
    QString Impresora() const { return m_impresora; }
    void setImpresora(const QString &value) { m_impresora = value; }
    /// The PDF path for the file destination.
    QString Fichero() const { return m_fichero; }
    void setFichero(const QString &value) { m_fichero = value; }
    /// The first three tariffs in ascending code of the warehouse of the last search (of the
    /// dialog's warehouse as it opened, before any search).
    std::array<Tarifa, 3> Tarifas() const { return m_tarifas; }

    /// The search statement for the company, warehouse, tariff codes and conditions.
    static QString statement(qint16 empresa, qint16 almacen, const std::array<qint16, 3> &tarifas,
                             const QString &condiciones);
    /// "SELECT a.Cod_Tarifa,b.Decimales FROM Almacen_Tarifas a  INNER JOIN Tarifas b … ORDER BY a.Cod_Tarifa".
    static QString tariffsStatement(qint16 empresa, qint16 almacen);

protected:
    QString statement(qint16 empresa, const FiltroArticulos &filtro) override;
    QStringList rowCells(const Recordset &recordset) const override;
    void load(qint16 empresa) override;
    void searched() override;

private:
    std::array<Tarifa, 3> m_tarifas{};
    qint16 m_tarifasAlmacen = -1; // the warehouse m_tarifas were read for; -1 before
    QString m_ultimaInstruccion;
    QString m_ultimoCriterio;
    QPushButton *cmdImprimir;
    enmDestination m_destino = kdPantalla;
    QString m_impresora, m_fichero;
};

} // namespace Varnel_Controles
