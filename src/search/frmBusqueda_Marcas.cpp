#include "search/frmBusqueda_Marcas.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"

namespace Varnel_Controles {

frmBusqueda_Marcas::frmBusqueda_Marcas(QWidget *parent)
    : frmBusqueda(QStringLiteral("frmBusqueda_Marcas"), QStringLiteral("Búsqueda de Marcas"),
                  2, 14, parent)
    , txtNombre(addNameFilter(QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando."),
                              QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".")))
{
    setColumn(0, 1000, Qt::AlignRight | Qt::AlignVCenter);
    setColumn(1, 0, Qt::AlignLeft | Qt::AlignVCenter);
}

QString frmBusqueda_Marcas::statement(const QString &texto)
{
    return QStringLiteral("SELECT Codigo, Nombre FROM Marcas ") + QStringLiteral(" WHERE (Nombre like '")
        + SqlText::patron(texto) + QStringLiteral("') ORDER BY Nombre");
}

void frmBusqueda_Marcas::Recuperar_Registros(const QString &texto) { search(statement(texto)); }

void frmBusqueda_Marcas::searchFromFilters() { Recuperar_Registros(Legacy::Trim(txtNombre->text())); }

QStringList frmBusqueda_Marcas::rowCells(const Recordset &rs) const
{
    return {rs.text(QStringLiteral("Codigo")), rs.text(QStringLiteral("Nombre"))};
}

} // namespace Varnel_Controles
