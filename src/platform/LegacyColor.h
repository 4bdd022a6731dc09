// Colour values as the host forms store them: 0x00BBGGRR, or 0x800000nn for a system colour.
#pragma once

#include "varnel_controles_export.h"

#include <QColor>
#include <QPalette>

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT LegacyColor
{
public:
    static constexpr quint32 WindowBackground = 0x80000005; // system colour 5
    static constexpr quint32 WindowText = 0x80000008;       // system colour 8
    static constexpr quint32 ButtonFace = 0x8000000F;       // system colour 15
    static constexpr quint32 ButtonText = 0x80000012;       // system colour 18
    static constexpr quint32 FocusBackColor = 0xFFFFC0;     // light cyan, RGB 192,255,255
    static constexpr quint32 DisabledBackColor = 0xE0E0E0;  // light grey

    /// True for 0x800000nn values, which name a palette role rather than a colour.
    static bool isSystemColor(quint32 value) { return (value & 0x80000000u) != 0; }
    /// The palette role standing for a system colour index (unknown indexes give Window).
    static QPalette::ColorRole systemRole(quint32 value);
    /// The colour painted for a value; system colours come from the application palette.
    static QColor toQColor(quint32 value);
    /// 0x00BBGGRR of a plain colour.
    static quint32 fromQColor(const QColor &color);
};

} // namespace Varnel_Controles
