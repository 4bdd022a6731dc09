#include "input/modTeclas.h"

#include "platform/KeyInjector.h"

namespace Varnel_Controles::modTeclas {

namespace {
constexpr quint8 VK_TAB = 9;
constexpr quint8 VK_SHIFT = 16;
constexpr quint32 EXTENDED = KeyInjector::ExtendedKey;
constexpr quint32 EXTENDED_UP = KeyInjector::ExtendedKey | KeyInjector::KeyUp;
} // namespace

void MoveFocusNext()
{
    KeyInjector &k = KeyInjector::current();
    k.keybd_event(VK_TAB, VK_TAB, EXTENDED, 0);
    k.keybd_event(VK_TAB, VK_TAB, EXTENDED_UP, 0);
}

void MoveFocusPrevious()
{
    KeyInjector &k = KeyInjector::current();
    k.keybd_event(VK_SHIFT, VK_SHIFT, EXTENDED, 0);
    k.keybd_event(VK_TAB, VK_TAB, EXTENDED, 0);
    k.keybd_event(VK_TAB, VK_TAB, EXTENDED_UP, 0);
    k.keybd_event(VK_SHIFT, VK_SHIFT, EXTENDED_UP, 0);
}

} // namespace Varnel_Controles::modTeclas
