#include "report/ReportLayout.h"

#include <QPaintDevice>
#include <QTextLayout>

namespace Varnel_Controles {

namespace {

QFont reportFont(qreal points, bool bold)
{
    QFont font(QStringList{QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

qreal pointsToDevice(qreal points, const QPaintDevice *device) { return points * device->logicalDpiY() / 72.0; }

const int kMaxTitleLines = 3;
const int kMaxCriteriaLines = 8;
const int kMaxHeadingLines = 4;

} // namespace

ReportLayout::ReportLayout(const clsListado &listado, const QPaintDevice *device, const QRectF &paper,
                           const QDateTime &printed)
    : m_listado(listado)
    , m_device(device)
    , m_paper(paper)
    , m_body(reportFont(8, false))
    , m_bold(reportFont(8, true))
    , m_title(reportFont(12, true))
    , m_bodyMetrics(m_body, device)
    , m_boldMetrics(m_bold, device)
    , m_titleMetrics(m_title, device)
    , m_lineHeight(qMax(m_bodyMetrics.lineSpacing(), m_boldMetrics.lineSpacing()))
    , m_hpad(pointsToDevice(2, device))
    , m_vpad(pointsToDevice(1, device))
{
    // Columns: twips to device units, narrowed together when the list is wider than the page.
    const auto &columnas = listado.Columnas();
    qreal natural = 0;
    for (const auto &c : columnas)
        natural += qMax(0, c.Ancho) / 1440.0 * device->logicalDpiX();
    const qreal scale = natural > paper.width() ? paper.width() / natural : 1.0;
    qreal x = 0;
    for (const auto &c : columnas) {
        const qreal w = qMax(0, c.Ancho) / 1440.0 * device->logicalDpiX() * scale;
        m_columnX.append(x);
        m_columnW.append(w);
        x += w;
    }

    // Heading: title (the print date at its right), criteria, column headings.
    m_printedText = QStringLiteral("Impreso el %1").arg(printed.toString(QStringLiteral("dd/MM/yyyy HH:mm")));
    const qreal dateWidth = m_bodyMetrics.horizontalAdvance(m_printedText);
    const qreal gap = m_lineHeight / 2;
    const qreal titleWidth = qMax<qreal>(paper.width() - dateWidth - 2 * gap, paper.width() / 2);
    m_titleLines = capped(wrap(listado.Titulo(), titleWidth, m_title), kMaxTitleLines, titleWidth, m_title);
    m_criteriaTop = qMax<qsizetype>(1, m_titleLines.size()) * m_titleMetrics.lineSpacing();
    if (!listado.Criterio().isEmpty())
        m_criteriaLines = capped(wrap(listado.Criterio(), paper.width(), m_body), kMaxCriteriaLines, paper.width(), m_body);
    m_headingsTop = m_criteriaTop + m_criteriaLines.size() * m_lineHeight + gap;
    QStringList titles;
    for (const auto &c : columnas)
        titles << c.Titulo;
    m_headings = layoutRow(titles, true);
    for (int i = 0; i < m_headings.size(); ++i)
        m_headings[i] = capped(m_headings[i], kMaxHeadingLines, qMax<qreal>(0, m_columnW[i] - 2 * m_hpad), m_bold);
    m_bodyTop = m_headingsTop + rowHeight(lineCount(m_headings)) + m_vpad;
    // Footer: the page label on the last line, a rule above it.
    m_bodyBottom = paper.height() - m_lineHeight - gap;
    m_linesPerPage = qMax(1, int((m_bodyBottom - m_bodyTop - 2 * m_vpad) / m_lineHeight));
}

QString ReportLayout::printable(const QString &text)
{
    auto control = [](QChar c) { return c.unicode() < 0x20 || (c.unicode() >= 0x7f && c.unicode() < 0xa0); };
    if (std::none_of(text.begin(), text.end(), control))
        return text;
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            out += QLatin1Char('\n');
            if (c == QLatin1Char('\r') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n'))
                ++i;
        } else {
            out += control(c) ? QLatin1Char(' ') : c;
        }
    }
    return out;
}

QFontMetricsF ReportLayout::metrics(const QFont &font) const
{
    if (font == m_body)
        return m_bodyMetrics;
    if (font == m_bold)
        return m_boldMetrics;
    return font == m_title ? m_titleMetrics : QFontMetricsF(font, m_device);
}

ReportLayout::Cell ReportLayout::wrap(const QString &raw, qreal width, const QFont &font) const
{
    const QFontMetricsF fm = metrics(font);
    Cell out;
    const QString text = printable(raw);
    for (const QString &paragraph : text.split(QLatin1Char('\n'))) {
        const qreal natural = fm.horizontalAdvance(paragraph);
        if (natural <= width) {
            out.append({paragraph, natural});
            continue;
        }
        QTextLayout layout(paragraph, font, m_device);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(qMax<qreal>(width, 0));
            QString part = paragraph.mid(line.textStart(), line.textLength());
            while (part.endsWith(QLatin1Char(' ')) && part.size() > 1)
                part.chop(1); // a blank at the break hangs past the width
            out.append({part, fm.horizontalAdvance(part)});
        }
        layout.endLayout();
    }
    return out;
}

ReportLayout::Cell ReportLayout::capped(Cell lines, int maxLines, qreal width, const QFont &font) const
{
    if (lines.size() <= maxLines)
        return lines;
    lines.resize(maxLines);
    const QFontMetricsF fm = metrics(font);
    Line &last = lines.last();
    const QString more(QChar(0x2026)); // "…": there is more than the page heading shows
    while (!last.text.isEmpty() && fm.horizontalAdvance(last.text + more) > width)
        last.text.chop(1);
    last.text += more;
    last.width = fm.horizontalAdvance(last.text);
    return lines;
}

ReportLayout::Row ReportLayout::layoutRow(const QStringList &cells, bool bold) const
{
    Row row(m_columnW.size());
    for (int i = 0; i < row.size(); ++i)
        row[i] = wrap(i < cells.size() ? cells.at(i) : QString(), m_columnW[i] - 2 * m_hpad, bold ? m_bold : m_body);
    return row;
}

int ReportLayout::lineCount(const Row &row)
{
    int lines = 1;
    for (const Cell &cell : row)
        lines = qMax(lines, int(cell.size()));
    return lines;
}

// Puts a row of `lines` lines at `y` (from the body's top) of the current page, breaking the
// page before it when it does not fit, and inside it when it is taller than a page.
void ReportLayout::place(int lines, qreal &y)
{
    const qreal capacity = m_bodyBottom - m_bodyTop;
    const qreal height = rowHeight(lines);
    if (y + height <= capacity)
        y += height;
    else if (lines <= m_linesPerPage) {
        m_pages.append({m_rows, 0});
        y = height;
    } else {
        int fit = int((capacity - y - 2 * m_vpad) / m_lineHeight);
        if (fit < 1) {
            m_pages.append({m_rows, 0});
            fit = m_linesPerPage;
            y = 0;
        }
        int done = 0;
        for (;;) {
            const int take = qMin(fit, lines - done);
            done += take;
            y += rowHeight(take);
            if (done >= lines)
                break;
            m_pages.append({m_rows, done});
            fit = m_linesPerPage;
            y = 0;
        }
    }
}

bool ReportLayout::paginate(const Progress &progress)
{
    m_pages = {{0, 0}};
    m_rows = 0;
    m_digest = 0;
    clsListado::Fuente &source = m_listado.Filas();
    const qint64 known = source.Total();
    source.Reiniciar();
    qreal y = 0;
    QStringList cells;
    while (source.Siguiente(cells)) {
        m_digest = qHash(cells, m_digest);
        place(lineCount(layoutRow(cells, false)), y);
        ++m_rows;
        if (progress && m_rows % 50 == 0 && !progress(m_rows, known >= 0 ? 2 * known : 0))
            return false;
    }
    if (!m_listado.Totales().isEmpty())
        place(lineCount(layoutRow(m_listado.Totales(), true)), y);
    return true;
}

QString ReportLayout::pageLabel(int page) const
{
    return QStringLiteral("Página %1 de %2").arg(page + 1).arg(m_pages.size());
}

} // namespace Varnel_Controles
