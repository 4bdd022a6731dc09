#include "platform/KeyInjector.h"

#include "platform/KeyCodes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace Varnel_Controles {

namespace {
KeyInjector *g_installed = nullptr;
}

KeyInjector &KeyInjector::current()
{
    static QtKeyInjector defaultInjector;
    return g_installed ? *g_installed : defaultInjector;
}

void KeyInjector::install(KeyInjector *injector)
{
    g_installed = injector;
}

void QtKeyInjector::keybd_event(quint8 virtualKey, quint8, quint32 flags, quintptr)
{
    const bool up = flags & KeyUp;
    int key = KeyCodes::qtKey(virtualKey);
    if (virtualKey == KeyCodes::vbKeyShift)
        m_shiftDown = !up;
    Qt::KeyboardModifiers modifiers = m_shiftDown || (virtualKey == KeyCodes::vbKeyShift && up)
        ? Qt::ShiftModifier : Qt::NoModifier;
    if (virtualKey == KeyCodes::vbKeyShift && !up)
        modifiers = Qt::NoModifier;
    if (key == Qt::Key_Tab && m_shiftDown)
        key = Qt::Key_Backtab;
    QString text;
    if (key == Qt::Key_Tab)
        text = QStringLiteral("\t");

    // Queued: the key reaches whatever has the focus once the current handler has returned.
    QMetaObject::invokeMethod(
        qApp,
        [key, modifiers, text, up] {
            QWidget *target = QApplication::focusWidget();
            if (!target)
                return;
            QKeyEvent event(up ? QEvent::KeyRelease : QEvent::KeyPress, key, modifiers, text);
            QApplication::sendEvent(target, &event);
        },
        Qt::QueuedConnection);
}

} // namespace Varnel_Controles
