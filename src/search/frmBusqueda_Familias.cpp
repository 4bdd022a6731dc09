#include "search/frmBusqueda_Familias.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"

namespace Varnel_Controles {

frmBusqueda_Familias::frmBusqueda_Familias(QWidget *parent)
    : frmBusqueda(QStringLiteral("frmBusqueda_Familias"), QStringLiteral("Búsqueda de Familias"), 2, 14, parent)
    , txtNombre(addNameFilter(QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando."),
                              QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".")))
{
    setColumn(0, 800, Qt::AlignRight | Qt::AlignVCenter);
    setColumn(1, 0, Qt::AlignLeft | Qt::AlignVCenter);
    paintFocus(txtNombre);
    resize(480, 380);
}

QString frmBusqueda_Familias::statement(qint16 empresa, int nivel, qint16 padre, const QString &texto)
{
    return QStringLiteral("SELECT Codigo, Descripcion FROM Familias WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Nivel =") + QString::number(nivel) + QStringLiteral(" AND Cod_Padre =")
        + QString::number(padre) + QStringLiteral(" AND Descripcion LIKE '") + SqlText::patron(texto)
        + QStringLiteral("' ORDER BY Descripcion");
}

void frmBusqueda_Familias::Recuperar_Registros(const QString &texto)
{
    search(statement(m_empresa, m_nivel, m_padre, texto));
}

void frmBusqueda_Familias::searchFromFilters() { Recuperar_Registros(Legacy::Trim(txtNombre->text())); }

QStringList frmBusqueda_Familias::rowCells(const Recordset &rs) const
{
    return {rs.text(QStringLiteral("Codigo")), cellText(rs, QStringLiteral("Descripcion"))};
}

} // namespace Varnel_Controles
