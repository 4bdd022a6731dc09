#include "platform/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>

namespace Varnel_Controles {

static double logicalDpi(const QWidget *widget)
{
    if (widget)
        return widget->logicalDpiX();
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        return screen->logicalDotsPerInchX();
    return 96.0;
}

int Twips::toPixels(double twips, const QWidget *widget)
{
    return int(std::lround(twips * logicalDpi(widget) / 1440.0));
}

double Twips::fromPixels(double pixels, const QWidget *widget)
{
    return pixels * 1440.0 / logicalDpi(widget);
}

} // namespace Varnel_Controles
