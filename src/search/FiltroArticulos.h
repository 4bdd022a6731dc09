// The filters of the article searches and the conditions they add to the statement, in this
// order: description, code, supplier reference and supplier, families. A text filter is a
// pattern ("*" a wildcard, a prefix otherwise; "%", "_" and "[" stand for themselves) and
// adds nothing when empty; a family level counts only while every level above is chosen.
#pragma once

#include "varnel_controles_export.h"

#include <QString>

namespace Varnel_Controles {

struct VARNEL_CONTROLES_TESTS_EXPORT FiltroArticulos
{
    enum Disposicion { Primera, Segunda }; // the list of frmBusqueda_Articulos_1 or _2

    QString descripcion, codigo, referencia;
    qint32 proveedor = 0;
    qint16 familia1 = 0, familia2 = 0, familia3 = 0;
    bool extendido = false; // the first layout's description also searches the long description

    /// The conditions after " WHERE a.Cod_Empresa =1", each starting " AND". The second layout
    /// never searches the long description and writes "aref.Cod_Empresa" in the supplier
    /// subqueries. Throws DbError for text SQL cannot store.
    QString condiciones(Disposicion disposicion) const;
    /// Whether any filter holds a value.
    bool vacio() const;
};

} // namespace Varnel_Controles
