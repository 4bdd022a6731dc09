#include "articles/DescripcionCompuesta.h"

namespace Varnel_Controles {

QString DescripcionCompuesta::Componer(const QList<Campo> &campos, const Datos &datos)
{
    QString texto;
    for (const Campo &campo : campos) {
        const qsizetype n = qMax<qsizetype>(0, campo.Longitud);
        switch (campo.Cod_Campo) {
        case 0: texto += QString(n, u' '); break;
        case 1: texto += datos.marca.left(n); break;
        case 2: texto += datos.referencia.left(n); break;
        case 3: texto += datos.temporada.left(n); break;
        case 4: case 5: case 6: texto += datos.familias[size_t(campo.Cod_Campo - 4)].left(n); break;
        default: break;
        }
    }
    return texto;
}

} // namespace Varnel_Controles
