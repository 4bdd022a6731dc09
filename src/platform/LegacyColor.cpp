#include "platform/LegacyColor.h"

#include <QApplication>

namespace Varnel_Controles {

QPalette::ColorRole LegacyColor::systemRole(quint32 value)
{
    switch (value & 0xFF) {
    case 4: return QPalette::Window;           // menu
    case 5: return QPalette::Base;             // window background
    case 7: return QPalette::WindowText;       // menu text
    case 8: return QPalette::Text;             // window text
    case 13: return QPalette::Highlight;
    case 14: return QPalette::HighlightedText;
    case 15: return QPalette::Button;          // button face
    case 16: return QPalette::Dark;            // button shadow
    case 17: return QPalette::PlaceholderText; // grey text
    case 18: return QPalette::ButtonText;
    case 20: return QPalette::Light;           // button highlight
    case 23: return QPalette::ToolTipText;
    case 24: return QPalette::ToolTipBase;
    default: return QPalette::Window;
    }
}

QColor LegacyColor::toQColor(quint32 value)
{
    if (isSystemColor(value))
        return QApplication::palette().color(QPalette::Active, systemRole(value));
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

quint32 LegacyColor::fromQColor(const QColor &color)
{
    return quint32(color.red()) | (quint32(color.green()) << 8) | (quint32(color.blue()) << 16);
}

} // namespace Varnel_Controles
