// Synthesised keystrokes, as the legacy platform's keybd_event: each call queues one key
// transition, delivered after the current handler returns to whichever widget then has the
// focus, so the host's own handlers run first and Tab moves the focus in the host's tab order.
#pragma once

#include "varnel_controles_export.h"

#include <QtGlobal>

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT KeyInjector
{
public:
    enum Flags : quint32 { ExtendedKey = 1, KeyUp = 2 };

    virtual ~KeyInjector() = default;
    /// One key transition: virtual key, scan code, flags (1 extended, 2 key up), extra information.
    virtual void keybd_event(quint8 virtualKey, quint8 scanCode, quint32 flags, quintptr extraInfo) = 0;

    /// The injector in use (the Qt event-queue one unless another was installed).
    static KeyInjector &current();
    /// Installs `injector` (not owned); nullptr restores the default.
    static void install(KeyInjector *injector);
};

/// Posts the transitions as Qt key events to the focused widget, keeping the Shift state
/// between calls so that Shift down + Tab becomes a back-tab.
class VARNEL_CONTROLES_TESTS_EXPORT QtKeyInjector : public KeyInjector
{
public:
    void keybd_event(quint8 virtualKey, quint8 scanCode, quint32 flags, quintptr extraInfo) override;

private:
    bool m_shiftDown = false;
};

} // namespace Varnel_Controles
