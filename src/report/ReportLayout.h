// Where everything of a printed list goes on the pages of one paint device, in its units: the
// columns (twips scaled to fit the page width), each cell's text wrapped into lines that fit
// its column, and the page breaks (a row taller than a page continues on the next). Nothing is
// painted here; paginate() reads the rows once and keeps only where each page starts.
#pragma once

#include "varnel_controles_export.h"

#include "report/clsListado.h"

#include <QDateTime>
#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QVector>
#include <functional>

class QPaintDevice;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT ReportLayout
{
public:
    struct Line { QString text; qreal width; };
    using Cell = QVector<Line>;
    using Row = QVector<Cell>;
    /// A page starts at this line of this row (the totals row is row rowCount()).
    struct PageStart { qint64 row; int line; };
    /// Called every few rows with the rows read over both readings and their total (0 while
    /// unknown); false stops the work.
    using Progress = std::function<bool(qint64 done, qint64 total)>;

    /// `paper` is the printable rectangle in the device's units, its top left at (0, 0).
    ReportLayout(const clsListado &listado, const QPaintDevice *device, const QRectF &paper,
                 const QDateTime &printed = QDateTime::currentDateTime());

    /// Text as it prints: TAB and other control characters become blanks, CR LF, CR and LF
    /// break the line.
    static QString printable(const QString &text);
    /// The lines of `text` in `font`, each at most `width` wide, broken between words, or
    /// anywhere in a word wider than `width` (at least one character per line).
    Cell wrap(const QString &text, qreal width, const QFont &font) const;
    /// Each cell of a row wrapped into its column (missing cells are empty).
    Row layoutRow(const QStringList &cells, bool bold) const;
    static int lineCount(const Row &row);
    qreal rowHeight(int lines) const { return lines * m_lineHeight + 2 * m_vpad; }

    /// First reading of the rows: counts them and finds where each page starts. False when
    /// `progress` stopped it. The source may throw (DbError).
    bool paginate(const Progress &progress = {});
    const QVector<PageStart> &pages() const { return m_pages; }
    qint64 rowCount() const { return m_rows; }
    /// A digest of the rows read, to tell whether a second reading gave the same rows.
    size_t digest() const { return m_digest; }
    QString pageLabel(int page) const;

    const clsListado &listado() const { return m_listado; }
    const QRectF &paper() const { return m_paper; }
    const QFont &font(bool bold) const { return bold ? m_bold : m_body; }
    const QFont &titleFont() const { return m_title; }
    qreal lineHeight() const { return m_lineHeight; }
    qreal ascent(bool bold) const { return bold ? m_boldMetrics.ascent() : m_bodyMetrics.ascent(); }
    qreal hpad() const { return m_hpad; }
    qreal vpad() const { return m_vpad; }
    qreal columnX(int column) const { return m_columnX.at(column); }
    qreal columnWidth(int column) const { return m_columnW.at(column); }
    int columnCount() const { return int(m_columnW.size()); }
    /// The page heading: title lines, print date, criteria lines, column headings.
    const Cell &titleLines() const { return m_titleLines; }
    qreal titleLineHeight() const { return m_titleMetrics.lineSpacing(); }
    qreal titleAscent() const { return m_titleMetrics.ascent(); }
    QString printedText() const { return m_printedText; }
    const Cell &criteriaLines() const { return m_criteriaLines; }
    qreal criteriaTop() const { return m_criteriaTop; }
    const Row &headings() const { return m_headings; }
    qreal headingsTop() const { return m_headingsTop; }
    qreal bodyTop() const { return m_bodyTop; }
    qreal bodyBottom() const { return m_bodyBottom; }
    /// Whole lines of one row that a page holds.
    int linesPerPage() const { return m_linesPerPage; }

private:
    /// At most `maxLines` lines; the last one shown ends in "…" when there were more.
    QFontMetricsF metrics(const QFont &font) const;
    Cell capped(Cell lines, int maxLines, qreal width, const QFont &font) const;
    void place(int lines, qreal &y);

    const clsListado &m_listado;
    const QPaintDevice *m_device;
    QRectF m_paper;
    QFont m_body, m_bold, m_title;
    QFontMetricsF m_bodyMetrics, m_boldMetrics, m_titleMetrics;
    qreal m_lineHeight, m_hpad, m_vpad;
    QVector<qreal> m_columnX, m_columnW;
    Cell m_titleLines, m_criteriaLines;
    QString m_printedText;
    Row m_headings;
    qreal m_criteriaTop = 0, m_headingsTop = 0, m_bodyTop = 0, m_bodyBottom = 0;
    int m_linesPerPage = 1;

    QVector<PageStart> m_pages;
    qint64 m_rows = 0;
    size_t m_digest = 0;
};

} // namespace Varnel_Controles
