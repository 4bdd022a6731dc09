#include "platform/KeyCodes.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace Varnel_Controles {

namespace {

struct Pair { int qt; qint16 vk; };

constexpr Pair kSpecialKeys[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9}, {Qt::Key_Backtab, 9}, {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Shift, 16}, {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18}, {Qt::Key_Pause, 19}, {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},
    {Qt::Key_Home, 36}, {Qt::Key_Left, 37}, {Qt::Key_Up, 38}, {Qt::Key_Right, 39},
    {Qt::Key_Down, 40}, {Qt::Key_Print, 44}, {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46},
    {Qt::Key_Menu, 93}, {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
    {Qt::Key_Semicolon, 186}, {Qt::Key_Plus, 187}, {Qt::Key_Equal, 187}, {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189}, {Qt::Key_Period, 190}, {Qt::Key_Slash, 191}, {Qt::Key_QuoteLeft, 192},
    {Qt::Key_Ntilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_Apostrophe, 222},
};

constexpr Pair kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109}, {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110}, {Qt::Key_Slash, 111},
};

} // namespace

qint16 KeyCodes::keyCode(const QKeyEvent *event)
{
    const int key = event->key();
    const bool keypad = event->modifiers() & Qt::KeypadModifier;
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return qint16(key);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return qint16(keypad ? 96 + (key - Qt::Key_0) : key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return qint16(112 + (key - Qt::Key_F1));
    if (keypad)
        for (const Pair &p : kKeypad)
            if (p.qt == key) return p.vk;
    for (const Pair &p : kSpecialKeys)
        if (p.qt == key) return p.vk;
    return 0;
}

qint16 KeyCodes::shiftState(Qt::KeyboardModifiers m)
{
    return qint16(((m & Qt::ShiftModifier) ? ShiftMask : 0) | ((m & Qt::ControlModifier) ? CtrlMask : 0)
                  | ((m & Qt::AltModifier) ? AltMask : 0));
}

qint16 KeyCodes::shiftState(const QKeyEvent *event)
{
    return shiftState(event->modifiers());
}

qint16 KeyCodes::keyAscii(const QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Delete || (key >= Qt::Key_Left && key <= Qt::Key_Down))
        return 0;
    if ((event->modifiers() & Qt::ControlModifier) && !(event->modifiers() & Qt::AltModifier)) {
        if (key >= Qt::Key_A && key <= Qt::Key_Z)
            return qint16(key - Qt::Key_A + 1);
        return 0;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return 13;
    if (key == Qt::Key_Backspace) return 8;
    if (key == Qt::Key_Escape) return 27;
    if (key == Qt::Key_Tab) return 9;
    const QString text = event->text();
    if (text.isEmpty())
        return 0;
    const QChar c = text.at(0);
    if (c.unicode() < 32 || c.unicode() == 127)
        return 0;
    return qint16(c.unicode());
}

qint16 KeyCodes::mouseButton(Qt::MouseButtons b)
{
    return qint16(((b & Qt::LeftButton) ? 1 : 0) | ((b & Qt::RightButton) ? 2 : 0)
                  | ((b & Qt::MiddleButton) ? 4 : 0));
}

int KeyCodes::qtKey(qint16 vk)
{
    if ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9'))
        return vk;
    if (vk >= 112 && vk <= 135)
        return Qt::Key_F1 + (vk - 112);
    for (const Pair &p : kSpecialKeys)
        if (p.vk == vk) return p.qt;
    return Qt::Key_unknown;
}

} // namespace Varnel_Controles
