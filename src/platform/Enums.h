// Enumerations shared by the controls and their hosts.
#pragma once

#include "varnel_controles_export.h"

#include <QObject>

namespace Varnel_Controles {
Q_NAMESPACE_EXPORT(VARNEL_CONTROLES_EXPORT)

enum enmTypeOfValues : qint32 { Alfanumeric = 0, Numeric = 1 };
Q_ENUM_NS(enmTypeOfValues)

enum enmAppearance : qint16 { Flat = 0, ThreeD = 1 };
Q_ENUM_NS(enmAppearance)

enum enmBorderStyle : qint16 { None = 0, FixedSingle = 1 };
Q_ENUM_NS(enmBorderStyle)

enum enmAlignment : qint16 { LeftJustify = 0, RightJustify = 1, Center = 2 };
Q_ENUM_NS(enmAlignment)

enum enmDestination : qint32 { kdPantalla = 1, kdImpresora = 2, kdFichero = 3, kdEMail = 4 };
Q_ENUM_NS(enmDestination)

} // namespace Varnel_Controles
