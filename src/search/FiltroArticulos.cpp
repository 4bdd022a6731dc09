#include "search/FiltroArticulos.h"

#include "data/SqlText.h"

namespace Varnel_Controles {

QString FiltroArticulos::condiciones(Disposicion disposicion) const
{
    QString out;
    if (!descripcion.isEmpty()) {
        const QString p = SqlText::patronLiteral(descripcion);
        if (extendido && disposicion == Primera)
            out += QStringLiteral(" AND (a.Descripcion LIKE '") + p + u'\'' + QStringLiteral(" OR a.Desc_Memo LIKE '") + p
                + QStringLiteral("')");
        else
            out += QStringLiteral(" AND a.Descripcion LIKE '") + p + u'\'';
    }
    if (!codigo.isEmpty())
        out += QStringLiteral(" AND a.Codigo LIKE '") + SqlText::patronLiteral(codigo) + u'\'';
    const QString subquery = QStringLiteral(" AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE ");
    const QString supplier = disposicion == Primera ? QStringLiteral(" aref.Cod_empresa=a.Cod_Empresa AND aref.Cod_Prov=")
                                                    : QStringLiteral(" aref.Cod_Empresa=a.Cod_Empresa AND aref.Cod_Prov=");
    if (proveedor != 0 && !referencia.isEmpty())
        out += subquery + supplier + QString::number(proveedor) + QStringLiteral(" AND aref.Ref LIKE '")
            + SqlText::patronLiteral(referencia) + QStringLiteral("')");
    else if (proveedor != 0)
        out += subquery + supplier + QString::number(proveedor) + u')';
    else if (!referencia.isEmpty())
        out += subquery + QStringLiteral(" aref.Cod_empresa=a.Cod_Empresa AND aref.Ref LIKE '")
            + SqlText::patronLiteral(referencia) + QStringLiteral("')");
    if (familia1 > 0) {
        out += QStringLiteral(" AND a.Familia_1=") + QString::number(familia1);
        if (familia2 > 0) {
            out += QStringLiteral(" AND a.Familia_2=") + QString::number(familia2);
            if (familia3 > 0)
                out += QStringLiteral(" AND a.Familia_3=") + QString::number(familia3);
        }
    }
    return out;
}

bool FiltroArticulos::vacio() const
{
    return descripcion.isEmpty() && codigo.isEmpty() && referencia.isEmpty() && proveedor == 0 && familia1 == 0
        && familia2 == 0 && familia3 == 0;
}

} // namespace Varnel_Controles
