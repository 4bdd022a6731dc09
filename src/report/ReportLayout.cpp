#include "report/ReportLayout.h"

#include <QDataStream>
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

    // Heading: the title and the criteria, wrapped whole; the column headings.
    m_printedText = QStringLiteral("Impreso el %1").arg(printed.toString(QStringLiteral("dd/MM/yyyy HH:mm")));
    Heading whole, later; // the whole heading, and its one-line version
    const Cell title = wrap(listado.Titulo(), paper.width(), m_title);
    const Cell criteria = listado.Criterio().isEmpty() ? Cell() : wrap(listado.Criterio(), paper.width(), m_body);
    for (const Line &line : title)
        whole.append({line.text, line.width, true});
    for (const Line &line : criteria)
        whole.append({line.text, line.width, false});
    const Line shortTitle = capped(title, 1, paper.width(), m_title).first();
    later.append({shortTitle.text, shortTitle.width, true});
    if (!criteria.isEmpty()) {
        const Line shortCriteria = capped(criteria, 1, paper.width(), m_body).first();
        later.append({shortCriteria.text, shortCriteria.width, false});
    }
    QStringList titles;
    for (const auto &c : columnas)
        titles << c.Titulo;
    m_headings = layoutRow(titles, true);
    for (int i = 0; i < m_headings.size(); ++i)
        m_headings[i] = capped(m_headings[i], kMaxHeadingLines, qMax<qreal>(0, m_columnW[i] - 2 * m_hpad), m_bold);
    m_headingsHeight = rowHeight(lineCount(m_headings)) + m_vpad;
    // Footer: the print date and the page label on the last line, a rule above it.
    m_bodyBottom = paper.height() - m_lineHeight - m_lineHeight / 2;
    sliceHeading(whole, later.first());
    m_laterHeading = m_firstHeadings.size() == 1 ? whole : later; // a short heading repeats whole
    m_laterTop = heightOf(m_laterHeading) + m_lineHeight / 2;
}

qreal ReportLayout::heightOf(const Heading &heading) const
{
    qreal height = 0;
    for (const HeadLine &line : heading)
        height += headLineHeight(line);
    return height;
}

// The first pages' headings: the whole heading in one when it fits a third of a page, else in
// parts of at most a third of a page (at least a line each); a part that goes on with the
// criteria starts with the one-line title.
void ReportLayout::sliceHeading(const Heading &whole, const HeadLine &shortTitle)
{
    const qreal share = m_paper.height() / 3;
    for (const HeadLine &line : whole) {
        if (m_firstHeadings.isEmpty() || heightOf(m_firstHeadings.last()) + headLineHeight(line) > share) {
            m_firstHeadings.append(Heading());
            if (m_firstHeadings.size() > 1 && !line.title)
                m_firstHeadings.last().append(shortTitle);
        }
        m_firstHeadings.last().append(line);
    }
    for (const Heading &heading : m_firstHeadings)
        m_firstTops.append(heightOf(heading) + m_lineHeight / 2);
}

const ReportLayout::Heading &ReportLayout::pageHeading(int page) const
{
    return page < m_firstHeadings.size() ? m_firstHeadings[page] : m_laterHeading;
}

qreal ReportLayout::headingsTop(int page) const
{
    return page < m_firstTops.size() ? m_firstTops[page] : m_laterTop;
}

int ReportLayout::linesOn(int page) const
{
    return qMax(1, int((m_bodyBottom - bodyTop(page) - 2 * m_vpad) / m_lineHeight));
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
    const auto capacity = [this] { return m_bodyBottom - bodyTop(int(m_pages.size()) - 1); };
    const auto newPage = [this, &y](qint64 row, int line) {
        m_pages.append({row, line});
        y = 0;
        return linesOn(int(m_pages.size()) - 1);
    };
    const qreal height = rowHeight(lines);
    if (y + height <= capacity()) {
        y += height;
        return;
    }
    if (lines <= linesOn(int(m_pages.size()))) { // whole on the next page
        newPage(m_rows, 0);
        y = height;
        return;
    }
    int fit = int((capacity() - y - 2 * m_vpad) / m_lineHeight);
    if (fit < 1)
        fit = newPage(m_rows, 0);
    for (int done = 0;;) {
        const int take = qMin(fit, lines - done);
        done += take;
        y += rowHeight(take);
        if (done >= lines)
            break;
        fit = newPage(m_rows, done);
    }
}

bool ReportLayout::paginate(const Progress &progress, QDataStream *spool)
{
    m_pages = {{0, 0}};
    m_rows = 0;
    clsListado::Fuente &source = m_listado.Filas();
    const qint64 known = source.Total();
    source.Reiniciar();
    qreal y = 0;
    QStringList cells;
    while (source.Siguiente(cells)) {
        if (spool)
            *spool << cells;
        place(lineCount(layoutRow(cells, false)), y);
        ++m_rows;
        if (progress && m_rows % 50 == 0 && !progress(m_rows, known >= 0 ? 2 * known : 0))
            return false;
    }
    if (!m_listado.Totales().isEmpty())
        place(lineCount(layoutRow(m_listado.Totales(), true)), y);
    while (m_pages.size() < m_firstHeadings.size()) // the rest of a long heading on pages of its own
        m_pages.append({m_rows + (m_listado.Totales().isEmpty() ? 0 : 1), 0});
    return true;
}

QString ReportLayout::pageLabel(int page) const
{
    return QStringLiteral("Página %1 de %2").arg(page + 1).arg(m_pages.size());
}

} // namespace Varnel_Controles
