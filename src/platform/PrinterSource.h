// The machine's printers as the print system lists them, and its default printer. The default
// source asks Qt's print support (CUPS on Linux); tests and hosts may install another.
#pragma once

#include "varnel_controles_export.h"

#include <QString>
#include <QStringList>

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT PrinterSource
{
public:
    virtual ~PrinterSource() = default;
    /// Device names of the installed printers, in the print system's order.
    virtual QStringList printerNames() const = 0;
    /// Device name of the default printer ("" when there is none).
    virtual QString defaultPrinterName() const = 0;

    /// The source in use (Qt's print support unless another was installed).
    static const PrinterSource &current();
    /// Installs `source` (not owned); nullptr restores the default.
    static void install(const PrinterSource *source);
};

class VARNEL_CONTROLES_EXPORT QtPrinterSource : public PrinterSource
{
public:
    QStringList printerNames() const override;
    QString defaultPrinterName() const override;
};

} // namespace Varnel_Controles
