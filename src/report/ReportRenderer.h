// Paints a list onto a paged device (a PDF writer, a printer, a print preview): reads the rows
// once, counting the pages and copying the rows to a temporary spool file, then paints the pages
// one after another from that file, so that neither the rows nor a laid-out page are kept in
// memory and the rows painted are those counted. Text is real text (QPainter::drawText), clipped
// to its cell.
#pragma once

#include "varnel_controles_export.h"

#include "report/ReportLayout.h"

class QPagedPaintDevice;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT ReportRenderer
{
public:
    enum Outcome { Done, Cancelled, SpoolFailed };
    /// The pages' paint rectangle on `device`, its top left at (0, 0), in the device's units.
    static QRectF paper(const QPagedPaintDevice &device);
    /// Paints every page of `listado` on `device`. Cancelled when `progress` said stop;
    /// SpoolFailed when the temporary spool file could not be written or read (the reason in
    /// `why`). The rows' source may throw (DbError).
    static Outcome render(const clsListado &listado, QPagedPaintDevice &device,
                          const ReportLayout::Progress &progress = {}, QString *why = nullptr);
};

} // namespace Varnel_Controles
