// Paints a list onto a paged device (a PDF writer, a printer, a print preview): counts the
// pages first, then paints them one after another, reading the rows a second time, so that no
// laid-out page is kept. Text is real text (QPainter::drawText), clipped to its cell.
#pragma once

#include "varnel_controles_export.h"

#include "report/ReportLayout.h"

class QPagedPaintDevice;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT ReportRenderer
{
public:
    enum Outcome { Done, Cancelled, DataChanged };
    /// The pages' paint rectangle on `device`, its top left at (0, 0), in the device's units.
    static QRectF paper(const QPagedPaintDevice &device);
    /// Paints every page of `listado` on `device`. Cancelled when `progress` said stop;
    /// DataChanged when the second reading gave other rows. The rows' source may throw.
    static Outcome render(const clsListado &listado, QPagedPaintDevice &device,
                          const ReportLayout::Progress &progress = {});
};

} // namespace Varnel_Controles
