// Focus moves from the keyboard: Enter and Up arrow act as Tab and Shift+Tab. The keystrokes
// are queued, so the focus moves after the calling handler (and the host's) has returned.
#pragma once

#include "varnel_controles_export.h"

namespace Varnel_Controles::modTeclas {

/// Tab: press and release of virtual key 9 (scan code 9, extended-key flag).
VARNEL_CONTROLES_EXPORT void MoveFocusNext();
/// Shift+Tab: Shift down, Tab press and release, Shift up (all with the extended-key flag).
VARNEL_CONTROLES_EXPORT void MoveFocusPrevious();

} // namespace Varnel_Controles::modTeclas
