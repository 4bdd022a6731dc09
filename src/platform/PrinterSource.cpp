#include "platform/PrinterSource.h"

#include <QPrinterInfo>

namespace Varnel_Controles {

namespace {
const PrinterSource *g_installed = nullptr;
}

const PrinterSource &PrinterSource::current()
{
    static QtPrinterSource qt;
    return g_installed ? *g_installed : qt;
}

void PrinterSource::install(const PrinterSource *source) { g_installed = source; }

QStringList QtPrinterSource::printerNames() const { return QPrinterInfo::availablePrinterNames(); }

QString QtPrinterSource::defaultPrinterName() const { return QPrinterInfo::defaultPrinterName(); }

} // namespace Varnel_Controles
