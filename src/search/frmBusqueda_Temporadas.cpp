#include "search/frmBusqueda_Temporadas.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"

namespace Varnel_Controles {

frmBusqueda_Temporadas::frmBusqueda_Temporadas(QWidget *parent)
    : frmBusqueda(QStringLiteral("frmBusqueda_Temporadas"), QStringLiteral("Búsqueda de Temporadas"), 2, 14, parent)
    , txtNombre(addNameFilter(QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando."),
                              QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".")))
{
    setColumn(0, 900, Qt::AlignLeft | Qt::AlignVCenter);
    setColumn(1, 0, Qt::AlignLeft | Qt::AlignVCenter);
    paintFocus(txtNombre);
    resize(480, 380);
}

QString frmBusqueda_Temporadas::statement(qint16 empresa, const QString &texto)
{
    return QStringLiteral("SELECT Codigo, Descripcion FROM Temporadas WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Descripcion LIKE '") + SqlText::patron(texto) + QStringLiteral("' ORDER BY Descripcion");
}

void frmBusqueda_Temporadas::Recuperar_Registros(const QString &texto) { search(statement(m_empresa, texto)); }

void frmBusqueda_Temporadas::searchFromFilters() { Recuperar_Registros(Legacy::Trim(txtNombre->text())); }

QStringList frmBusqueda_Temporadas::rowCells(const Recordset &rs) const
{
    return {rs.text(QStringLiteral("Codigo")), cellText(rs, QStringLiteral("Descripcion"))};
}

void frmBusqueda_Temporadas::takeRow(int row)
{
    m_codigoTemporada = cell(row, 0);
    m_nombre = cell(row, 1);
}

void frmBusqueda_Temporadas::clearResult()
{
    m_codigoTemporada.clear();
    m_nombre.clear();
}

} // namespace Varnel_Controles
