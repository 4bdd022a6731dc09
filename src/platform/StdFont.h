// The font object of the host forms: name, size in points, charset, weight and the three styles.
#pragma once

#include "varnel_controles_export.h"

#include <QFont>
#include <QMetaType>
#include <QString>

namespace Varnel_Controles {

struct VARNEL_CONTROLES_EXPORT StdFont
{
    QString Name = QStringLiteral("MS Sans Serif");
    double Size = 8.25;
    int Charset = 0;
    int Weight = 400; // 400 normal, 700 bold
    bool Underline = false;
    bool Italic = false;
    bool Strikethrough = false;

    /// The Qt font painted for this object.
    QFont toQFont() const;
    /// The object describing a Qt font (weight on the 100-900 scale, size in points).
    static StdFont fromQFont(const QFont &font);

    bool operator==(const StdFont &other) const;
    bool operator!=(const StdFont &other) const { return !(*this == other); }
};

} // namespace Varnel_Controles

Q_DECLARE_METATYPE(Varnel_Controles::StdFont)
