// Sizes in twips: 1440 per logical inch, 15 per pixel at 96 dpi.
#pragma once

#include "varnel_controles_export.h"

class QWidget;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT Twips
{
public:
    /// Pixels for a length in twips on the screen of `widget` (the primary screen when null).
    static int toPixels(double twips, const QWidget *widget = nullptr);
    /// Twips for a length in pixels on the screen of `widget`.
    static double fromPixels(double pixels, const QWidget *widget = nullptr);
};

} // namespace Varnel_Controles
