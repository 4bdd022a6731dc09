// Key events in the terms the controls and their hosts use: legacy virtual-key numbers
// (Enter 13, Escape 27, PageDown 34, Up 38, Down 40, F3 114 …), a shift mask
// (1 Shift, 2 Ctrl, 4 Alt) and the character code (the Unicode code point).
#pragma once

#include "varnel_controles_export.h"

#include <QtGlobal>
#include <qnamespace.h>

class QKeyEvent;
class QMouseEvent;

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT KeyCodes
{
public:
    enum : qint16 {
        vbKeyBack = 8, vbKeyTab = 9, vbKeyReturn = 13, vbKeyShift = 16, vbKeyControl = 17,
        vbKeyMenu = 18, vbKeyEscape = 27, vbKeySpace = 32, vbKeyPageUp = 33, vbKeyPageDown = 34,
        vbKeyEnd = 35, vbKeyHome = 36, vbKeyLeft = 37, vbKeyUp = 38, vbKeyRight = 39,
        vbKeyDown = 40, vbKeyInsert = 45, vbKeyDelete = 46, vbKeyF1 = 112, vbKeyF3 = 114,
        vbKeyF6 = 117, vbKeyF9 = 120, vbKeyF12 = 123
    };
    enum : qint16 { ShiftMask = 1, CtrlMask = 2, AltMask = 4 };

    /// Virtual-key number of the event's key (0 when it has none).
    static qint16 keyCode(const QKeyEvent *event);
    /// Shift mask of the event's modifiers.
    static qint16 shiftState(const QKeyEvent *event);
    /// Character code the key types, 0 when it types none (arrows, Delete, F-keys);
    /// Ctrl+letter gives 1-26 as on the legacy platform.
    static qint16 keyAscii(const QKeyEvent *event);
    /// Mouse buttons as 1 left, 2 right, 4 middle.
    static qint16 mouseButton(Qt::MouseButtons buttons);
    static qint16 shiftState(Qt::KeyboardModifiers modifiers);
    /// The Qt key for a virtual-key number (used when key events are synthesised).
    static int qtKey(qint16 keyCode);
};

} // namespace Varnel_Controles
