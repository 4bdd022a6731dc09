#include "data/SqliteDialect.h"

#include "data/DbError.h"
#include "data/SqlText.h"

#include <QChar>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <sqlite3.h>
#include <vector>

namespace Varnel_Controles {

// ---------------------------------------------------------------------------------------------
// Collation weights, as the server's Windows collation sorts: a primary weight (the letter
// without case or accent, Ñ right after N; blanks, punctuation and symbols before digits,
// digits before letters) and a secondary one (the accent). Hyphens and apostrophes are left
// out of both ("AB-C" sorts between "ABB" and "ABD") and only break ties. Texts compare on
// primaries first, then on secondaries, then on where their hyphens and apostrophes stand.
namespace {

struct Weight
{
    quint32 primary;
    quint16 secondary;
    bool operator==(const Weight &o) const { return primary == o.primary && secondary == o.secondary; }
};

constexpr char32_t kTableSize = 0x250;

// Control characters first, then blanks, punctuation and symbols, then digits, then letters
// and everything else; within a group by code point (21 bits), one step kept for Ñ.
quint32 primaryOf(char32_t base)
{
    quint32 group = 3;
    switch (QChar::category(base)) {
    case QChar::Other_Control:
        group = 0;
        break;
    case QChar::Separator_Space: case QChar::Punctuation_Connector: case QChar::Punctuation_Dash:
    case QChar::Punctuation_Open: case QChar::Punctuation_Close: case QChar::Punctuation_InitialQuote:
    case QChar::Punctuation_FinalQuote: case QChar::Punctuation_Other: case QChar::Symbol_Math:
    case QChar::Symbol_Currency: case QChar::Symbol_Modifier: case QChar::Symbol_Other:
        group = 1;
        break;
    case QChar::Number_DecimalDigit: case QChar::Number_Letter: case QChar::Number_Other:
        group = 2;
        break;
    default:
        break;
    }
    return (group << 22) | (quint32(base) << 1);
}

inline bool ignorable(char32_t c) { return c == U'-' || c == U'\''; }

const std::array<Weight, kTableSize> &weightTable()
{
    static const std::array<Weight, kTableSize> table = [] {
        std::array<Weight, kTableSize> t{};
        for (char32_t c = 0; c < kTableSize; ++c) {
            const char32_t upper = QChar::toUpper(c);
            Weight w{primaryOf(upper), 0};
            if (upper == U'Ñ') {
                w = {primaryOf(U'N') + 1, 0};
            } else if (QChar::decompositionTag(upper) == QChar::Canonical) {
                const QString d = QChar::decomposition(upper);
                if (d.size() >= 2 && d.at(0).unicode() < 0x80)
                    w = {primaryOf(d.at(0).unicode()), d.at(1).unicode()};
            }
            t[c] = w;
        }
        return t;
    }();
    return table;
}

inline Weight weightOf(char32_t c)
{
    if (c < kTableSize)
        return weightTable()[c];
    return {primaryOf(QChar::toUpper(c)), 0};
}

// UTF-8 decoding into a reusable buffer.
void decodeUtf8(const unsigned char *s, int n, std::vector<char32_t> &out)
{
    out.clear();
    for (int i = 0; i < n;) {
        const unsigned char b = s[i];
        char32_t c;
        int len;
        if (b < 0x80) { c = b; len = 1; }
        else if ((b >> 5) == 6) { c = b & 0x1F; len = 2; }
        else if ((b >> 4) == 14) { c = b & 0x0F; len = 3; }
        else { c = b & 0x07; len = 4; }
        for (int k = 1; k < len && i + k < n; ++k)
            c = (c << 6) | (s[i + k] & 0x3F);
        out.push_back(c);
        i += len;
    }
}

template <typename Seq>
int compareSeq(const Seq &a, size_t na, const Seq &b, size_t nb)
{
    while (na > 0 && a[na - 1] == U' ') --na;
    while (nb > 0 && b[nb - 1] == U' ') --nb;
    // Primaries, then secondaries, of the characters that are not hyphens or apostrophes.
    for (const bool primary : {true, false}) {
        size_t i = 0, j = 0;
        for (;; ++i, ++j) {
            while (i < na && ignorable(a[i])) ++i;
            while (j < nb && ignorable(b[j])) ++j;
            if (i == na || j == nb)
                break;
            const Weight wa = weightOf(a[i]), wb = weightOf(b[j]);
            const quint32 x = primary ? wa.primary : wa.secondary, y = primary ? wb.primary : wb.secondary;
            if (x != y)
                return x < y ? -1 : 1;
        }
        if (i < na || j < nb)
            return i < na ? 1 : -1;
    }
    // The hyphens and apostrophes: a text without them first, then by how many characters
    // stand before each, then by the character.
    size_t i = 0, j = 0, beforeA = 0, beforeB = 0;
    for (;; ++i, ++j) {
        for (; i < na && !ignorable(a[i]); ++i) ++beforeA;
        for (; j < nb && !ignorable(b[j]); ++j) ++beforeB;
        if (i == na || j == nb)
            return i < na ? 1 : j < nb ? -1 : 0;
        if (beforeA != beforeB)
            return beforeA < beforeB ? -1 : 1;
        if (a[i] != b[j])
            return a[i] < b[j] ? -1 : 1;
    }
}

inline bool weightLess(char32_t a, char32_t b)
{
    const Weight wa = weightOf(a), wb = weightOf(b);
    return wa.primary != wb.primary ? wa.primary < wb.primary : wa.secondary < wb.secondary;
}

// Matches one [class] at pattern position p against c; returns the position after the class,
// or -1 when the class is not closed (then "[" is an ordinary character).
template <typename Seq>
long matchClass(const Seq &pat, size_t np, size_t p, char32_t c, bool &matched)
{
    size_t i = p + 1;
    bool negate = false;
    if (i < np && pat[i] == U'^') { negate = true; ++i; }
    bool any = false;
    const size_t start = i;
    while (i < np && (pat[i] != U']' || i == start)) {
        if (i + 2 < np && pat[i + 1] == U'-' && pat[i + 2] != U']') {
            if (!weightLess(c, pat[i]) && !weightLess(pat[i + 2], c))
                any = true;
            i += 3;
        } else {
            if (weightOf(c) == weightOf(pat[i]))
                any = true;
            ++i;
        }
    }
    if (i >= np)
        return -1;
    matched = any != negate;
    return long(i + 1);
}

template <typename Seq>
bool likeSeq(const Seq &text, size_t nt, const Seq &pat, size_t np)
{
    size_t t = 0, p = 0;
    size_t starP = size_t(-1), starT = 0;
    while (t < nt) {
        if (p < np && pat[p] == U'%') {
            starP = ++p;
            starT = t;
            continue;
        }
        if (p < np) {
            bool ok = false;
            size_t next = p + 1;
            if (pat[p] == U'_') {
                ok = true;
            } else if (pat[p] == U'[') {
                bool matched = false;
                const long after = matchClass(pat, np, p, text[t], matched);
                if (after < 0)
                    ok = weightOf(text[t]) == weightOf(U'[');
                else {
                    ok = matched;
                    next = size_t(after);
                }
            } else {
                ok = weightOf(text[t]) == weightOf(pat[p]);
            }
            if (ok) {
                ++t;
                p = next;
                continue;
            }
        }
        if (starP == size_t(-1))
            return false;
        p = starP;
        t = ++starT;
    }
    while (p < np && pat[p] == U'%') ++p;
    return p == np;
}

// ---- SQLite callbacks -----------------------------------------------------------------------

int collationCompare(void *, int n1, const void *s1, int n2, const void *s2)
{
    thread_local std::vector<char32_t> a, b;
    decodeUtf8(static_cast<const unsigned char *>(s1), n1, a);
    decodeUtf8(static_cast<const unsigned char *>(s2), n2, b);
    return compareSeq(a, a.size(), b, b.size());
}

void likeFunction(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    // The pattern of a statement is decoded once and kept with the statement for every row.
    using Pattern = std::vector<char32_t>;
    thread_local Pattern decoded, text;
    const auto *pat = static_cast<const Pattern *>(sqlite3_get_auxdata(ctx, 0));
    if (!pat) {
        decodeUtf8(sqlite3_value_text(argv[0]), sqlite3_value_bytes(argv[0]), decoded);
        sqlite3_set_auxdata(ctx, 0, new Pattern(decoded), [](void *p) { delete static_cast<Pattern *>(p); });
        pat = &decoded;
    }
    const auto *t = sqlite3_value_text(argv[1]);
    const int nt = sqlite3_value_bytes(argv[1]);
    decodeUtf8(t, nt, text);
    sqlite3_result_int(ctx, likeSeq(text, text.size(), *pat, pat->size()) ? 1 : 0);
}

void lenFunction(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    thread_local std::vector<char32_t> text;
    decodeUtf8(sqlite3_value_text(argv[0]), sqlite3_value_bytes(argv[0]), text);
    size_t n = text.size();
    while (n > 0 && text[n - 1] == U' ') --n;
    sqlite3_result_int64(ctx, sqlite3_int64(n));
}

// The server's default float-to-text: six significant digits, the exponent with three digits
// ("1.23457e+006"). Writes into `out` (40 bytes) and returns the length; no allocation, as it
// runs for every price of every row listed.
int floatText(double value, char *out)
{
    int n = std::snprintf(out, 40, "%.6g", value);
    char *e = static_cast<char *>(std::memchr(out, 'e', size_t(n)));
    if (!e)
        return n;
    const int digits = int(out + n - (e + 2)); // after "e+" / "e-"
    if (digits < 3) {
        const int pad = 3 - digits;
        std::memmove(e + 2 + pad, e + 2, size_t(digits) + 1);
        std::memset(e + 2, '0', size_t(pad));
        n += pad;
    }
    return n;
}

void varcharFunction(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        sqlite3_result_null(ctx);
        return;
    case SQLITE_FLOAT: {
        char text[40];
        sqlite3_result_text(ctx, text, floatText(sqlite3_value_double(argv[0]), text), SQLITE_TRANSIENT);
        return;
    }
    default:
        sqlite3_result_text(ctx, reinterpret_cast<const char *>(sqlite3_value_text(argv[0])),
                            sqlite3_value_bytes(argv[0]), SQLITE_TRANSIENT);
    }
}

// ---- The rewriter -----------------------------------------------------------------------------

struct Token
{
    enum Kind { Space, Word, String, Number, Punct } kind;
    QString text;
};

QVector<Token> tokenize(const QString &sql)
{
    QVector<Token> out;
    const int n = int(sql.size());
    for (int i = 0; i < n;) {
        const QChar c = sql[i];
        int j = i + 1;
        if (c.isSpace()) {
            while (j < n && sql[j].isSpace()) ++j;
            out.append({Token::Space, sql.mid(i, j - i)});
        } else if (c == u'\'' || ((c == u'N' || c == u'n') && j < n && sql[j] == u'\'')) {
            j = c == u'\'' ? i + 1 : i + 2;
            while (j < n) {
                if (sql[j] == u'\'') {
                    if (j + 1 < n && sql[j + 1] == u'\'') { j += 2; continue; }
                    ++j;
                    break;
                }
                ++j;
            }
            out.append({Token::String, sql.mid(i, j - i)});
        } else if (c.isLetter() || c == u'_' || c == u'@' || c == u'#') {
            while (j < n && (sql[j].isLetterOrNumber() || sql[j] == u'_' || sql[j] == u'$' || sql[j] == u'@' || sql[j] == u'#')) ++j;
            out.append({Token::Word, sql.mid(i, j - i)});
        } else if (c == u'[') {
            while (j < n && sql[j] != u']') ++j;
            j = qMin(n, j + 1);
            out.append({Token::Word, sql.mid(i, j - i)});
        } else if (c.isDigit()) {
            while (j < n && (sql[j].isDigit() || sql[j] == u'.')) ++j;
            out.append({Token::Number, sql.mid(i, j - i)});
        } else {
            if (j < n && ((c == u'<' && (sql[j] == u'=' || sql[j] == u'>')) || (c == u'>' && sql[j] == u'=')
                          || (c == u'!' && sql[j] == u'=')))
                ++j;
            out.append({Token::Punct, sql.mid(i, j - i)});
        }
        i = j;
    }
    return out;
}

QString join(const QVector<Token> &tokens)
{
    QString out;
    for (const Token &t : tokens)
        out += t.text;
    return out;
}

bool isWord(const Token &t, const char *word)
{
    return t.kind == Token::Word && t.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

int nextSignificant(const QVector<Token> &t, int i)
{
    for (++i; i < t.size(); ++i)
        if (t[i].kind != Token::Space) return i;
    return -1;
}

int previousSignificant(const QVector<Token> &t, int i)
{
    for (--i; i >= 0; --i)
        if (t[i].kind != Token::Space) return i;
    return -1;
}

QString unquote(const QString &literal)
{
    QString s = literal.startsWith(u'N') || literal.startsWith(u'n') ? literal.mid(1) : literal;
    s = s.mid(1, s.size() - 2);
    s.replace(QLatin1String("''"), QLatin1String("'"));
    return s;
}

QString quote(const QString &text) { return u'\'' + SqlText::texto(text) + u'\''; }

void rewriteIsNull(QVector<Token> &t)
{
    for (int i = 0; i < t.size(); ++i) {
        if (isWord(t[i], "ISNULL")) {
            const int next = nextSignificant(t, i);
            if (next >= 0 && t[next].text == QLatin1String("("))
                t[i].text = QStringLiteral("IFNULL");
        }
    }
}

void rewriteConvert(QVector<Token> &t)
{
    for (int i = 0; i < t.size(); ++i) {
        if (!isWord(t[i], "CONVERT"))
            continue;
        const int open = nextSignificant(t, i);
        if (open < 0 || t[open].text != QLatin1String("("))
            continue;
        const int type = nextSignificant(t, open);
        if (type < 0 || !(isWord(t[type], "VARCHAR") || isWord(t[type], "NVARCHAR")))
            continue;
        int comma = nextSignificant(t, type);
        if (comma >= 0 && t[comma].text == QLatin1String("(")) { // VARCHAR(n)
            int close = comma;
            while (close < t.size() && t[close].text != QLatin1String(")")) ++close;
            comma = nextSignificant(t, close);
        }
        if (comma < 0 || t[comma].text != QLatin1String(","))
            continue;
        t[i].text = QStringLiteral("TSQL_VARCHAR");
        t.remove(open + 1, comma - open);
    }
}

void rewriteTop(QVector<Token> &t)
{
    for (int i = 0; i < t.size(); ++i) {
        if (!isWord(t[i], "SELECT"))
            continue;
        int top = nextSignificant(t, i);
        if (top >= 0 && isWord(t[top], "DISTINCT"))
            top = nextSignificant(t, top);
        if (top < 0 || !isWord(t[top], "TOP"))
            continue;
        // TOP n or TOP (n): anything else is a statement cut short or not the library's.
        const int count = nextSignificant(t, top);
        int number = count, last = count;
        if (count >= 0 && t[count].text == QLatin1String("(")) {
            number = nextSignificant(t, count);
            last = number < 0 ? -1 : nextSignificant(t, number);
            if (last >= 0 && t[last].text != QLatin1String(")"))
                last = -1;
        }
        if (number < 0 || last < 0 || t[number].kind != Token::Number)
            throw DbError(DbError::ProviderError,
                          QStringLiteral("Instrucción SQL mal formada: falta el número de filas detrás de TOP."));
        const QString n = t[number].text;
        // The select ends at the parenthesis that closes its subquery, or at the end.
        int depth = 0, end = int(t.size());
        for (int k = last + 1; k < t.size(); ++k) {
            if (t[k].text == QLatin1String("(")) ++depth;
            else if (t[k].text == QLatin1String(")")) {
                if (depth == 0) { end = k; break; }
                --depth;
            }
        }
        // Drop trailing blanks and a final semicolon from the limit's position.
        int at = end;
        while (at > 0 && (t[at - 1].kind == Token::Space || t[at - 1].text == QLatin1String(";"))) --at;
        t.insert(at, {Token::Word, QStringLiteral(" LIMIT ") + n});
        const bool blankAfter = last + 1 < t.size() && t[last + 1].kind == Token::Space;
        t.remove(top, last - top + (blankAfter ? 2 : 1));
    }
}

QString likePrefix(const QString &pattern)
{
    QString prefix;
    for (QChar c : pattern) {
        if (c == u'%' || c == u'_' || c == u'[')
            break;
        prefix += c;
    }
    return prefix;
}

QString lastPart(const QString &identifier)
{
    QString s = identifier;
    if (s.startsWith(u'[')) s = s.mid(1, s.size() - 2);
    return s;
}

// A statement whose top-level WHERE fixes one table's company ("WHERE a.Cod_Empresa =1", with
// no OR at that level): every row it reads has that company.
struct FixedCompany
{
    QString alias, number;
    bool found() const { return !alias.isEmpty(); }
};

FixedCompany fixedCompany(const QVector<Token> &t)
{
    int depth = 0;
    for (int i = 0; i < t.size(); ++i) {
        if (t[i].text == QLatin1String("(")) ++depth;
        else if (t[i].text == QLatin1String(")")) --depth;
        if (depth != 0 || !isWord(t[i], "WHERE"))
            continue;
        const int alias = nextSignificant(t, i), dot = nextSignificant(t, alias), column = nextSignificant(t, dot);
        const int eq = nextSignificant(t, column), number = nextSignificant(t, eq);
        if (number < 0 || t[alias].kind != Token::Word || t[dot].text != QLatin1String(".")
            || !isWord(t[column], "Cod_Empresa") || t[eq].text != QLatin1String("=") || t[number].kind != Token::Number)
            return {};
        for (int k = number + 1, d = 0; k < t.size(); ++k) {
            if (t[k].text == QLatin1String("(")) ++d;
            else if (t[k].text == QLatin1String(")")) --d;
            else if (d == 0 && isWord(t[k], "OR")) return {};
        }
        return {t[alias].text, t[number].text};
    }
    return {};
}

// Inside subqueries, the fixed company of the outer rows is written as its number: the
// subquery no longer depends on the outer row and runs once, seeking its own indexes.
void uncorrelateCompany(QVector<Token> &t, const FixedCompany &company)
{
    int depth = 0;
    for (int i = 0; i + 2 < t.size(); ++i) {
        if (t[i].text == QLatin1String("(")) ++depth;
        else if (t[i].text == QLatin1String(")")) --depth;
        if (depth > 0 && t[i].kind == Token::Word && t[i].text.compare(company.alias, Qt::CaseInsensitive) == 0
            && t[i + 1].text == QLatin1String(".") && isWord(t[i + 2], "Cod_Empresa")) {
            t[i] = {Token::Number, company.number};
            t.remove(i + 1, 2);
        }
    }
}

bool isIntegerCode(const QString &column)
{
    return column.compare(QLatin1String("Codigo"), Qt::CaseInsensitive) == 0
        || column.compare(QLatin1String("Cod_Articulo"), Qt::CaseInsensitive) == 0;
}

// The integers whose decimal text starts with `prefix`: prefix, prefix0-prefix9,
// prefix00-prefix99 … as ranges of `column` joined by OR, up to the largest value a 64-bit
// integer column holds (the last range cut there). Empty when no integer can match (a prefix
// that is not digits, "0" followed by more, or a number beyond that largest value).
QString integerRanges(const QString &column, const QString &prefix)
{
    constexpr qint64 kLargest = std::numeric_limits<qint64>::max();
    bool digits = !prefix.isEmpty() && prefix.size() <= 19;
    for (QChar c : prefix)
        digits = digits && c.isDigit() && c.unicode() < 0x80;
    if (!digits || (prefix.size() > 1 && prefix.startsWith(u'0')))
        return {};
    bool fits = false;
    qint64 low = prefix.toLongLong(&fits), high = low;
    if (!fits)
        return {};
    QStringList ranges;
    for (;;) {
        ranges << QStringLiteral("%1 BETWEEN %2 AND %3").arg(column).arg(low).arg(high);
        if (low == 0 || low > kLargest / 10)
            break;
        low *= 10;
        high = high > (kLargest - 9) / 10 ? kLargest : high * 10 + 9;
    }
    return u'(' + ranges.join(QLatin1String(" OR ")) + u')';
}

// The table a statement reads under `alias` ("FROM Articulos a", "JOIN Articulos_Ref c").
QString tableOf(const QVector<Token> &t, const QString &alias)
{
    for (int i = 0; i < t.size(); ++i) {
        if (!isWord(t[i], "FROM") && !isWord(t[i], "JOIN"))
            continue;
        const int table = nextSignificant(t, i), name = table < 0 ? -1 : nextSignificant(t, table);
        if (name >= 0 && t[table].kind == Token::Word && t[name].kind == Token::Word
            && t[name].text.compare(alias, Qt::CaseInsensitive) == 0)
            return t[table].text;
    }
    return {};
}

// The condition that makes an integer code's prefix LIKE seek. For a table whose company the
// statement fixes, the codes come from a subquery on that table alone, which seeks the primary
// key once per range (SQLite does not seek OR-ed ranges of a table joined to others).
QString integerCodeRange(const QVector<Token> &t, int colStart, int col, const QString &prefix,
                         const FixedCompany &company)
{
    const QString name = lastPart(t[col].text);
    if (integerRanges(name, prefix).isEmpty())
        return {};
    QString column;
    for (int k = colStart; k <= col; ++k)
        column += t[k].text;
    const QString table = colStart < col && company.found()
            && t[colStart].text.compare(company.alias, Qt::CaseInsensitive) == 0
        ? tableOf(t, company.alias) : QString();
    if (table.isEmpty())
        return integerRanges(column, prefix);
    return QStringLiteral("%1 IN (SELECT %2 FROM %3 WHERE Cod_Empresa=%4 AND %5)")
        .arg(column, name, table, company.number, integerRanges(name, prefix));
}

// The column of the fixed company's table that the statement is ordered by ("ORDER BY
// a.Codigo"), or empty.
QString orderColumn(const QVector<Token> &t, const FixedCompany &company)
{
    for (int i = 0; i + 2 < t.size(); ++i) {
        if (!isWord(t[i], "ORDER"))
            continue;
        const int by = nextSignificant(t, i), alias = nextSignificant(t, by), dot = nextSignificant(t, alias);
        const int column = nextSignificant(t, dot), after = nextSignificant(t, column);
        if (column >= 0 && isWord(t[by], "BY") && t[alias].text.compare(company.alias, Qt::CaseInsensitive) == 0
            && t[dot].text == QLatin1String(".") && t[column].kind == Token::Word && after < 0)
            return t[column].text;
    }
    return {};
}

void addLikeRanges(QVector<Token> &t, const FixedCompany &company)
{
    QVector<int> depth(t.size());
    for (int i = 0, d = 0; i < t.size(); ++i) {
        d += t[i].text == QLatin1String(")") ? -1 : 0;
        depth[i] = d;
        d += t[i].text == QLatin1String("(") ? 1 : 0;
    }
    const QString table = company.found() ? tableOf(t, company.alias) : QString();
    const QString ordered = table.isEmpty() ? QString() : orderColumn(t, company);
    for (int i = int(t.size()) - 1; i >= 0; --i) {
        if (!isWord(t[i], "LIKE"))
            continue;
        const int lit = nextSignificant(t, i);
        int col = previousSignificant(t, i);
        if (lit < 0 || col < 0 || t[lit].kind != Token::String || t[col].kind != Token::Word)
            continue;
        if (isWord(t[col], "NOT"))
            continue;
        int colStart = col;
        const int dot = previousSignificant(t, col);
        if (dot >= 0 && t[dot].text == QLatin1String(".")) {
            const int owner = previousSignificant(t, dot);
            if (owner >= 0 && t[owner].kind == Token::Word)
                colStart = owner;
        }
        const QString prefix = likePrefix(unquote(t[lit].text));
        if (prefix.isEmpty())
            continue;
        QString column;
        for (int k = colStart; k <= col; ++k)
            column += t[k].text;
        const QString name = lastPart(t[col].text);
        QString range;
        if (isIntegerCode(name)) {
            range = integerCodeRange(t, colStart, col, prefix, company);
            if (range.isEmpty())
                continue;
        } else {
            range = QStringLiteral("%1 >= %2 AND %1 < %3")
                        .arg(name, quote(prefix), quote(prefix + QString::fromUcs4(U"\U0010FFFF", 1)));
            const bool ownTable = colStart < col && !ordered.isEmpty() && depth[i] == 0
                && t[colStart].text.compare(company.alias, Qt::CaseInsensitive) == 0;
            if (ownTable && ordered.compare(name, Qt::CaseInsensitive) != 0)
                range = QStringLiteral("%1.%2 IN (SELECT %2 FROM %3 WHERE Cod_Empresa=%4 AND %5)")
                            .arg(company.alias, ordered, table, company.number, range);
            else
                range = QStringLiteral("%1 >= %2 AND %1 < %3")
                            .arg(column, quote(prefix), quote(prefix + QString::fromUcs4(U"\U0010FFFF", 1)));
        }
        t.insert(lit + 1, {Token::Punct, QStringLiteral(")")});
        t.insert(colStart, {Token::Punct, u'(' + range + QStringLiteral(" AND ")});
    }
}

QString isoDate(const QString &literal)
{
    static const QRegularExpression shortForm(QStringLiteral(R"(^\s*(\d{1,2})/(\d{1,2})/(\d{4})\s*$)"));
    static const QRegularExpression isoForm(QStringLiteral(R"(^(\d{4})-(\d{2})-(\d{2})(T00:00:00)?$)"));
    const QString text = unquote(literal);
    if (const auto m = shortForm.match(text); m.hasMatch())
        return QStringLiteral("'%1-%2-%3'").arg(m.captured(3), m.captured(2).rightJustified(2, u'0'),
                                               m.captured(1).rightJustified(2, u'0'));
    if (const auto m = isoForm.match(text); m.hasMatch())
        return QStringLiteral("'%1-%2-%3'").arg(m.captured(1), m.captured(2), m.captured(3));
    return literal;
}

void rewriteDates(QVector<Token> &t)
{
    static const QStringList operators{QStringLiteral("="), QStringLiteral("<"), QStringLiteral(">"),
                                       QStringLiteral("<="), QStringLiteral(">="), QStringLiteral("<>")};
    // column <op> 'date'
    for (int i = 0; i < t.size(); ++i) {
        if (t[i].kind != Token::Word || !SqliteDialect::isDateColumn(lastPart(t[i].text)))
            continue;
        const int op = nextSignificant(t, i);
        if (op < 0 || !operators.contains(t[op].text))
            continue;
        const int lit = nextSignificant(t, op);
        if (lit >= 0 && t[lit].kind == Token::String)
            t[lit].text = isoDate(t[lit].text);
    }
    // INSERT INTO table (columns) VALUES (values)
    for (int i = 0; i < t.size(); ++i) {
        if (!isWord(t[i], "INSERT"))
            continue;
        int k = i;
        while (k < t.size() && t[k].text != QLatin1String("(")) ++k;
        QStringList columns;
        for (++k; k < t.size() && t[k].text != QLatin1String(")"); ++k)
            if (t[k].kind == Token::Word)
                columns << lastPart(t[k].text);
        const int values = nextSignificant(t, k);
        if (values < 0 || !isWord(t[values], "VALUES"))
            continue;
        int open = nextSignificant(t, values);
        if (open < 0 || t[open].text != QLatin1String("("))
            continue;
        int index = 0, depth = 0;
        for (int v = open + 1; v < t.size(); ++v) {
            const QString &x = t[v].text;
            if (x == QLatin1String("(")) ++depth;
            else if (x == QLatin1String(")")) { if (depth-- == 0) break; }
            else if (x == QLatin1String(",") && depth == 0) ++index;
            else if (t[v].kind == Token::String && depth == 0 && index < columns.size()
                     && SqliteDialect::isDateColumn(columns[index]))
                t[v].text = isoDate(t[v].text);
        }
    }
}

} // namespace

bool SqliteDialect::isDateColumn(const QString &column)
{
    static const QStringList dates{QStringLiteral("Fecha"), QStringLiteral("FAlta"),
                                   QStringLiteral("Fecha_Inicial"), QStringLiteral("Fecha_Final")};
    return dates.contains(column, Qt::CaseInsensitive);
}

QString SqliteDialect::adapt(const QString &tsql)
{
    SqlText::comprobarInstruccion(tsql);
    // Most statements (code lookups) need nothing: skip the tokenizer for them. The words that
    // need it are looked for in an upper-case ASCII copy made in one pass (case-insensitive
    // searches cost more than the lookup itself); the two letters that fold to an ASCII one
    // (long s, Kelvin sign) take the tokenizer, whose comparisons fold them.
    static const char *const triggers[] = {"ISNULL", "TOP", "CONVERT", "LIKE", "FECHA", "FALTA", "(SELECT"};
    QByteArray upper(tsql.size(), Qt::Uninitialized);
    bool folds = false;
    for (qsizetype i = 0; i < tsql.size(); ++i) {
        const char16_t c = tsql.at(i).unicode();
        upper[i] = c >= u'a' && c <= u'z' ? char(c - 32) : c < 128 ? char(c) : '\x7f';
        folds = folds || c == 0x017F || c == 0x212A;
    }
    if (!folds && std::none_of(std::begin(triggers), std::end(triggers), [&](const char *word) { return upper.contains(word); }))
        return tsql;
    QVector<Token> tokens = tokenize(tsql);
    rewriteIsNull(tokens);
    rewriteConvert(tokens);
    rewriteTop(tokens);
    rewriteDates(tokens);
    const FixedCompany company = fixedCompany(tokens);
    if (company.found())
        uncorrelateCompany(tokens, company);
    addLikeRanges(tokens, company);
    return join(tokens);
}

void SqliteDialect::registerFunctions(sqlite3 *db)
{
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_collation(db, "MODERN_SPANISH_CI_AS", SQLITE_UTF8, nullptr, collationCompare);
    sqlite3_create_function(db, "like", 2, flags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_function(db, "like", 3, flags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_function(db, "LEN", 1, flags, nullptr, lenFunction, nullptr, nullptr);
    sqlite3_create_function(db, "TSQL_VARCHAR", 1, flags, nullptr, varcharFunction, nullptr, nullptr);
}

int SqliteDialect::compare(const QString &a, const QString &b)
{
    const QList<uint> ua = a.toUcs4(), ub = b.toUcs4();
    return compareSeq(ua, size_t(ua.size()), ub, size_t(ub.size()));
}

bool SqliteDialect::like(const QString &text, const QString &pattern)
{
    const QList<uint> t = text.toUcs4(), p = pattern.toUcs4();
    return likeSeq(t, size_t(t.size()), p, size_t(p.size()));
}

QString SqliteDialect::floatToVarchar(double value)
{
    char text[40];
    return QString::fromLatin1(text, floatText(value, text));
}

} // namespace Varnel_Controles
