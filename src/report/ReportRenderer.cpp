#include "report/ReportRenderer.h"

#include <QDataStream>
#include <QDir>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTemporaryFile>

namespace Varnel_Controles {

namespace {

using Line = ReportLayout::Line;

class PagePainter
{
public:
    PagePainter(QPainter &painter, const ReportLayout &layout) : p(painter), l(layout)
    {
        m_rule = QPen(Qt::black, l.lineHeight() / 16);
    }

    void heading(int page)
    {
        const qreal width = l.paper().width();
        qreal y = 0;
        for (const ReportLayout::HeadLine &line : l.pageHeading(page)) {
            p.setFont(line.title ? l.titleFont() : l.font(false));
            p.drawText(QPointF(0, y + (line.title ? l.titleAscent() : l.ascent(false))), line.text);
            y += l.headLineHeight(line);
        }
        const qreal top = l.headingsTop(page);
        rule(top);
        cells(l.headings(), 0, ReportLayout::lineCount(l.headings()), top, true);
        rule(l.bodyTop(page) - l.vpad());
        // Footer: the print date at the left, the page label at the right.
        const qreal footer = l.paper().height() - l.lineHeight();
        rule(footer - l.vpad());
        p.setFont(l.font(false));
        p.drawText(QPointF(0, footer + l.ascent(false)), l.printedText());
        const QString label = l.pageLabel(page);
        p.drawText(QPointF(width - p.fontMetrics().horizontalAdvance(label), footer + l.ascent(false)), label);
    }

    /// Lines [first, last) of a row at `top`; returns the height used.
    qreal cells(const ReportLayout::Row &row, int first, int last, qreal top, bool bold)
    {
        p.setFont(l.font(bold));
        for (int c = 0; c < row.size() && c < l.columnCount(); ++c) {
            const qreal x = l.columnX(c), w = l.columnWidth(c);
            const qreal inner = w - 2 * l.hpad();
            const enmAlignment align = l.listado().Columnas().at(c).Alineacion;
            for (int i = first; i < last && i < row[c].size(); ++i) {
                const Line &line = row[c][i];
                if (line.text.isEmpty())
                    continue;
                qreal left = x + l.hpad();
                if (align == RightJustify)
                    left = x + w - l.hpad() - line.width;
                else if (align == Center)
                    left = x + (w - line.width) / 2;
                const QPointF baseline(left, top + l.vpad() + (i - first) * l.lineHeight() + l.ascent(bold));
                if (line.width > inner + l.hpad() / 4) { // a single character wider than its column
                    p.save();
                    p.setClipRect(QRectF(x, top, w, l.rowHeight(last - first)));
                    p.drawText(QPointF(x + l.hpad(), baseline.y()), line.text);
                    p.restore();
                } else {
                    p.drawText(baseline, line.text);
                }
            }
        }
        return l.rowHeight(last - first);
    }

    void rule(qreal y)
    {
        p.setPen(m_rule);
        p.drawLine(QPointF(0, y), QPointF(l.paper().width(), y));
    }

private:
    QPainter &p;
    const ReportLayout &l;
    QPen m_rule;
};

} // namespace

QRectF ReportRenderer::paper(const QPagedPaintDevice &device)
{
    const QRect paint = device.pageLayout().paintRectPixels(device.logicalDpiX());
    return QRectF(0, 0, paint.width(), paint.height());
}

ReportRenderer::Outcome ReportRenderer::render(const clsListado &listado, QPagedPaintDevice &device,
                                               const ReportLayout::Progress &progress, QString *why)
{
    // The rows are read once: counted into pages and kept in a spool file, painted from it.
    QTemporaryFile spoolFile(QDir::tempPath() + QStringLiteral("/varnel-listado-XXXXXX.filas"));
    const auto failed = [&spoolFile, why] {
        if (why)
            *why = spoolFile.errorString();
        return SpoolFailed;
    };
    if (!spoolFile.open())
        return failed();
    QDataStream spool(&spoolFile);
    ReportLayout layout(listado, &device, paper(device));
    if (!layout.paginate(progress, &spool))
        return Cancelled;
    if (spool.status() != QDataStream::Ok || !spoolFile.flush() || !spoolFile.seek(0))
        return failed();
    const qint64 rows = layout.rowCount();
    const qint64 total = 2 * rows;
    const bool totals = !listado.Totales().isEmpty();
    const auto &pages = layout.pages();

    QPainter painter(&device);
    PagePainter page(painter, layout);
    QStringList cells;
    ReportLayout::Row current;
    bool loaded = false;
    qint64 row = 0;
    int line = 0;
    for (int p = 0; p < pages.size(); ++p) {
        if (p > 0)
            device.newPage();
        page.heading(p);
        const ReportLayout::PageStart end =
            p + 1 < pages.size() ? pages[p + 1] : ReportLayout::PageStart{rows + (totals ? 1 : 0), 0};
        qreal y = layout.bodyTop(p);
        while (row < end.row || (row == end.row && line < end.line)) {
            const bool isTotals = row == rows;
            if (!loaded) {
                if (isTotals) {
                    current = layout.layoutRow(listado.Totales(), true);
                    page.rule(y);
                } else {
                    spool >> cells;
                    if (spool.status() != QDataStream::Ok)
                        return failed();
                    current = layout.layoutRow(cells, false);
                }
                loaded = true;
            }
            const int count = ReportLayout::lineCount(current);
            const int stop = qMin(row == end.row ? end.line : count, count);
            y += page.cells(current, line, qMax(stop, line), y, isTotals);
            if (stop >= count || stop <= line) {
                ++row;
                line = 0;
                loaded = false;
                if (progress && row % 50 == 0 && row <= rows && !progress(rows + row, total))
                    return Cancelled;
            } else {
                line = stop;
            }
        }
    }
    if (progress)
        progress(total, total);
    return Done;
}

} // namespace Varnel_Controles
