#include "search/frmBusqueda_Proveedores.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"

namespace Varnel_Controles {

frmBusqueda_Proveedores::frmBusqueda_Proveedores(QWidget *parent)
    : frmBusqueda(QStringLiteral("frmBusqueda_Proveedores"), QStringLiteral("Búsqueda de Proveedores"),
                  2, 14, parent)
    , txtNombre(addNameFilter(QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando."),
                              QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".")))
{
    setColumn(0, 1000, Qt::AlignRight | Qt::AlignVCenter);
    setColumn(1, 0, Qt::AlignLeft | Qt::AlignVCenter);
    paintFocus(txtNombre);
}

QString frmBusqueda_Proveedores::statement(qint16 empresa, const QString &texto)
{
    const QString pattern = SqlText::patron(texto);
    const QString company = empresa == 0 ? QString()
                                         : QStringLiteral(" Cod_Empresa = ") + SqlText::empresa(empresa) + QStringLiteral(" And ");
    return QStringLiteral("SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores ") + QStringLiteral(" WHERE ") + company
        + QStringLiteral(" (Nombre like '") + pattern + QStringLiteral("' Or Nombre_Comercial like '") + pattern
        + QStringLiteral("') ORDER BY Nombre");
}

void frmBusqueda_Proveedores::Recuperar_Registros(const QString &texto) { search(statement(m_empresa, texto)); }

void frmBusqueda_Proveedores::searchFromFilters() { Recuperar_Registros(Legacy::Trim(txtNombre->text())); }

QStringList frmBusqueda_Proveedores::rowCells(const Recordset &rs) const
{
    return {rs.text(QStringLiteral("Codigo")),
            withTradeName(rs.text(QStringLiteral("Nombre")), rs.field(QStringLiteral("Nombre_Comercial")))};
}

} // namespace Varnel_Controles
