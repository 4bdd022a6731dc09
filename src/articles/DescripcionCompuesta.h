// How the article creation composes a description from the article's data: an ordered list of
// pieces (the rows of Formacion_Desc), each a field code and the characters it takes. Hosts
// that compose descriptions elsewhere use the same rule.
#pragma once

#include "varnel_controles_export.h"

#include <QList>
#include <QString>
#include <array>

namespace Varnel_Controles {

struct VARNEL_CONTROLES_EXPORT DescripcionCompuesta
{
    struct Campo
    {
        qint16 Cod_Campo;
        qint16 Longitud;
    };
    /// What the pieces come from; a family level without a code is empty.
    struct Datos
    {
        QString marca, referencia, temporada;
        std::array<QString, 3> familias;
    };

    /// The pieces in order, each cut to its first Longitud characters (none for 0 or less):
    /// 0 Longitud blanks, 1 the brand's name, 2 the reference, 3 the season, 4-6 family levels
    /// 1-3; any other code adds nothing. There are no separators besides the blanks of code 0.
    static QString Componer(const QList<Campo> &campos, const Datos &datos);
};

} // namespace Varnel_Controles
