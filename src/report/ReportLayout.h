// Where everything of a printed list goes on the pages of one paint device, in its units: the
// columns (twips scaled to fit the page width), each cell's text wrapped into lines that fit
// its column, the title and criteria of each page's heading, and the page breaks (a row taller
// than a page continues on the next). Nothing is painted here; paginate() reads the rows once,
// keeps only where each page starts and may copy the rows to a spool for the painting.
#pragma once

#include "varnel_controles_export.h"

#include "report/clsListado.h"

#include <QDateTime>
#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QVector>
#include <functional>

class QDataStream;
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
    /// A line of a page's heading: the title's (larger, bold) or the criteria's.
    struct HeadLine { QString text; qreal width; bool title; };
    using Heading = QVector<HeadLine>;
    /// Called every few rows with the steps done (rows counted, then rows painted) and their
    /// total (0 while unknown); false stops the work.
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

    /// The one reading of the rows: counts them and finds where each page starts, writing each
    /// row to `spool` when given. False when `progress` stopped it. The source may throw (DbError).
    bool paginate(const Progress &progress = {}, QDataStream *spool = nullptr);
    const QVector<PageStart> &pages() const { return m_pages; }
    qint64 rowCount() const { return m_rows; }
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
    /// The title and criteria lines of page `page`, whole and wrapped. When they take more than
    /// a third of a page, the first pages carry them a third of a page each (a part going on
    /// with the criteria under the one-line title) and the later ones a one-line version of each
    /// (ending in "…" when shortened).
    const Heading &pageHeading(int page) const;
    qreal headLineHeight(const HeadLine &line) const { return line.title ? m_titleMetrics.lineSpacing() : m_lineHeight; }
    qreal titleAscent() const { return m_titleMetrics.ascent(); }
    /// "Impreso el" and the print date, in the footer.
    QString printedText() const { return m_printedText; }
    /// The column headings (at most 4 lines each) and where they and the rows start on a page.
    const Row &headings() const { return m_headings; }
    qreal headingsTop(int page) const;
    qreal bodyTop(int page) const { return headingsTop(page) + m_headingsHeight; }
    qreal bodyBottom() const { return m_bodyBottom; }

private:
    QFontMetricsF metrics(const QFont &font) const;
    /// At most `maxLines` lines; the last one shown ends in "…" when there were more.
    Cell capped(Cell lines, int maxLines, qreal width, const QFont &font) const;
    qreal heightOf(const Heading &heading) const;
    void sliceHeading(const Heading &whole, const HeadLine &shortTitle);
    /// Whole lines of one row that page `page` holds.
    int linesOn(int page) const;
    void place(int lines, qreal &y);

    const clsListado &m_listado;
    const QPaintDevice *m_device;
    QRectF m_paper;
    QFont m_body, m_bold, m_title;
    QFontMetricsF m_bodyMetrics, m_boldMetrics, m_titleMetrics;
    qreal m_lineHeight, m_hpad, m_vpad;
    QVector<qreal> m_columnX, m_columnW;
    QString m_printedText;
    QVector<Heading> m_firstHeadings; // of the first pages, one each
    Heading m_laterHeading;           // of every page after them
    QVector<qreal> m_firstTops;       // the column headings' top under each first heading
    qreal m_laterTop = 0;
    Row m_headings;
    qreal m_headingsHeight = 0, m_bodyBottom = 0;

    QVector<PageStart> m_pages;
    qint64 m_rows = 0;
};

} // namespace Varnel_Controles
