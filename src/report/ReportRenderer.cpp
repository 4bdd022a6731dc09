#include "report/ReportRenderer.h"

#include <QPagedPaintDevice>
#include <QPainter>

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
        p.setFont(l.titleFont());
        qreal y = 0;
        for (const Line &line : l.titleLines()) {
            p.drawText(QPointF(0, y + l.titleAscent()), line.text);
            y += l.titleLineHeight();
        }
        p.setFont(l.font(false));
        const qreal dateWidth = p.fontMetrics().horizontalAdvance(l.printedText());
        p.drawText(QPointF(width - dateWidth, l.titleAscent()), l.printedText());
        y = l.criteriaTop();
        for (const Line &line : l.criteriaLines()) {
            p.drawText(QPointF(0, y + l.ascent(false)), line.text);
            y += l.lineHeight();
        }
        rule(l.headingsTop());
        cells(l.headings(), 0, ReportLayout::lineCount(l.headings()), l.headingsTop(), true);
        rule(l.bodyTop() - l.vpad());
        // Footer
        const qreal footer = l.paper().height() - l.lineHeight();
        rule(footer - l.vpad());
        p.setFont(l.font(false));
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
                                               const ReportLayout::Progress &progress)
{
    ReportLayout layout(listado, &device, paper(device));
    if (!layout.paginate(progress))
        return Cancelled;
    const qint64 rows = layout.rowCount();
    const qint64 total = 2 * rows;
    const bool totals = !listado.Totales().isEmpty();
    const auto &pages = layout.pages();

    clsListado::Fuente &source = listado.Filas();
    source.Reiniciar();
    QPainter painter(&device);
    PagePainter page(painter, layout);
    QStringList cells;
    ReportLayout::Row current;
    bool loaded = false;
    size_t digest = 0;
    qint64 row = 0;
    int line = 0;
    for (int p = 0; p < pages.size(); ++p) {
        if (p > 0)
            device.newPage();
        page.heading(p);
        const ReportLayout::PageStart end =
            p + 1 < pages.size() ? pages[p + 1] : ReportLayout::PageStart{rows + (totals ? 1 : 0), 0};
        qreal y = layout.bodyTop();
        while (row < end.row || (row == end.row && line < end.line)) {
            const bool isTotals = row == rows;
            if (!loaded) {
                if (isTotals) {
                    current = layout.layoutRow(listado.Totales(), true);
                    page.rule(y);
                } else {
                    if (!source.Siguiente(cells))
                        return DataChanged;
                    digest = qHash(cells, digest);
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
    if (source.Siguiente(cells) || digest != layout.digest())
        return DataChanged;
    if (progress)
        progress(total, total);
    return Done;
}

} // namespace Varnel_Controles
