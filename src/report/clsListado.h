// clsListado: a printed list as a host describes it: a title, a criteria line, columns (heading,
// width in twips, alignment), the rows and an optional totals row. The rows are a list held by
// the document, or read from a source as printing proceeds (a recordset, a callback), so that a
// list of 100,000 rows is never copied. modListados delivers it.
#pragma once

#include "varnel_controles_export.h"

#include "Enums.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace Varnel_Controles {

class Conexion;

class VARNEL_CONTROLES_EXPORT clsListado
{
public:
    struct Columna
    {
        QString Titulo;
        qint32 Ancho = 1440; // twips (1440 an inch); a list wider than the page is narrowed to fit
        enmAlignment Alineacion = LeftJustify;
    };

    /// Rows read one at a time. Each delivery reads them once, after Reiniciar (a print preview
    /// that lays the list out again reads them again); they are copied to a temporary file as
    /// the pages are counted and painted from it.
    class VARNEL_CONTROLES_EXPORT Fuente
    {
    public:
        virtual ~Fuente();
        /// Back before the first row. May throw DbError (reported, nothing delivered).
        virtual void Reiniciar() = 0;
        /// The next row's cells into `fila`; false after the last row.
        virtual bool Siguiente(QStringList &fila) = 0;
        /// The number of rows when known beforehand, else -1.
        virtual qint64 Total() const { return -1; }
    };

    explicit clsListado(const QString &titulo = QString());
    ~clsListado();
    /// A copy has its own list of rows and shares a source that was set.
    clsListado(const clsListado &other);
    clsListado &operator=(const clsListado &other);

    QString Titulo() const { return m_titulo; }
    void setTitulo(const QString &titulo) { m_titulo = titulo; }
    /// The filter the list was made with, printed under the title (wrapped; omitted when empty).
    QString Criterio() const { return m_criterio; }
    void setCriterio(const QString &criterio) { m_criterio = criterio; }

    /// Columns are at least kAnchoMinimo twips wide: a narrower width is refused (LegacyError 380).
    void AgregarColumna(const QString &titulo, qint32 anchoTwips, enmAlignment alineacion = LeftJustify);
    static constexpr qint32 kAnchoMinimo = 100;
    const QList<Columna> &Columnas() const { return m_columnas; }

    /// Adds a row to the document's own list (cells past the last column are not printed).
    void AgregarFila(const QStringList &celdas);
    /// The rows from `fuente` instead of the document's list (shared by copies of the document).
    void setFuente(std::shared_ptr<Fuente> fuente);
    /// The rows from a callback: `reiniciar` goes back to the start, `siguiente` fills a row.
    void setFuente(std::function<void()> reiniciar, std::function<bool(QStringList &)> siguiente);
    /// The rows of a forward-only recordset opened on `tsql` at each reading (the shared
    /// connection when `conexion` is null), the fields `campos` in order; NULL prints empty.
    void setConsulta(const QString &tsql, const QStringList &campos, Conexion *conexion = nullptr);
    /// The source of the rows (the document's list unless another was set).
    Fuente &Filas() const;

    /// The totals row, printed in bold under the last row (empty: none).
    QStringList Totales() const { return m_totales; }
    void setTotales(const QStringList &totales) { m_totales = totales; }

private:
    QString m_titulo;
    QString m_criterio;
    QList<Columna> m_columnas;
    QStringList m_totales;
    QList<QStringList> m_filas;
    std::shared_ptr<Fuente> m_fuente;         // set by the host; else the document's own rows
    mutable std::unique_ptr<Fuente> m_lista;  // reads m_filas
};

} // namespace Varnel_Controles
