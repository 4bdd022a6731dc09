#include "platform/Legacy.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTime>
#include <cmath>
#include <limits>

namespace Varnel_Controles::Legacy {

namespace {

bool isBlank(QChar c) { return c == u' ' || c == u'\t'; }

// Parses by the numeric test; returns nullopt when refused.
std::optional<double> parseLocaleNumber(const QString &input)
{
    QString s = input;
    int b = 0, e = s.size();
    while (b < e && isBlank(s[b])) ++b;
    while (e > b && isBlank(s[e - 1])) --e;
    s = s.mid(b, e - b);
    if (s.isEmpty())
        return std::nullopt;

    if (s.size() > 2 && s[0] == u'&' && (s[1].toUpper() == u'H' || s[1].toUpper() == u'O')) {
        bool ok = false;
        const qlonglong v = s.mid(2).toLongLong(&ok, s[1].toUpper() == u'H' ? 16 : 8);
        if (!ok)
            return std::nullopt;
        return double(v);
    }

    bool negative = false;
    if (s.startsWith(u'(') && s.endsWith(u')')) {
        negative = true;
        s = s.mid(1, s.size() - 2).trimmed();
    } else if (s.startsWith(u'-') || s.startsWith(u'+')) {
        negative = s[0] == u'-';
        s = s.mid(1);
        while (!s.isEmpty() && isBlank(s[0])) s.remove(0, 1);
    } else if (s.endsWith(u'-') || s.endsWith(u'+')) {
        negative = s.endsWith(u'-');
        s.chop(1);
        while (!s.isEmpty() && isBlank(s.back())) s.chop(1);
    }
    if (s.startsWith(u'€')) s = s.mid(1).trimmed();
    if (s.endsWith(u'€')) { s.chop(1); s = s.trimmed(); }

    QString digits;
    int i = 0;
    bool seenDigit = false;
    for (; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c >= u'0' && c <= u'9') { digits += c; seenDigit = true; }
        else if (c == u'.' && seenDigit) continue; // thousands separator
        else break;
    }
    if (i < s.size() && s[i] == u',') {
        digits += u'.';
        for (++i; i < s.size() && s[i] >= u'0' && s[i] <= u'9'; ++i) { digits += s[i]; seenDigit = true; }
    }
    if (!seenDigit)
        return std::nullopt;
    if (i < s.size() && QStringLiteral("EeDd").contains(s[i])) {
        QString exponent = QStringLiteral("e");
        ++i;
        if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) exponent += s[i++];
        int expDigits = 0;
        for (; i < s.size() && s[i] >= u'0' && s[i] <= u'9'; ++i, ++expDigits) exponent += s[i];
        if (expDigits == 0)
            return std::nullopt;
        digits += exponent;
    }
    if (i != s.size())
        return std::nullopt;
    bool ok = false;
    const double v = digits.toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return std::nullopt;
    return negative ? -v : v;
}

template <typename Int>
Int roundHalfEven(double value)
{
    if (std::isnan(value))
        return 0;
    const double r = std::nearbyint(value); // default rounding mode: half to even
    if (r <= double(std::numeric_limits<Int>::min())) return std::numeric_limits<Int>::min();
    if (r >= double(std::numeric_limits<Int>::max())) return std::numeric_limits<Int>::max();
    return Int(r);
}

} // namespace

bool IsNumeric(const QString &text) { return parseLocaleNumber(text).has_value(); }

double CDbl(const QString &text, bool *ok)
{
    const auto v = parseLocaleNumber(text);
    if (ok) *ok = v.has_value();
    return v.value_or(0.0);
}

double Val(const QString &text)
{
    QString s;
    s.reserve(text.size());
    for (QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r')
            s += c;
    if (s.size() > 2 && s[0] == u'&' && (s[1].toUpper() == u'H' || s[1].toUpper() == u'O')) {
        const int base = s[1].toUpper() == u'H' ? 16 : 8;
        double v = 0; // exact up to 2^53; wider values keep their magnitude, never wrap
        for (int i = 2; i < s.size(); ++i) {
            const int d = QStringLiteral("0123456789ABCDEF").indexOf(s[i].toUpper());
            if (d < 0 || d >= base) break;
            v = v * base + d;
        }
        return std::min(v, std::numeric_limits<double>::max());
    }
    QString number;
    int i = 0;
    if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) number += s[i++];
    bool point = false, digit = false;
    for (; i < s.size(); ++i) {
        if (s[i] >= u'0' && s[i] <= u'9') { number += s[i]; digit = true; }
        else if (s[i] == u'.' && !point) { number += u'.'; point = true; }
        else break;
    }
    if (!digit)
        return 0.0;
    if (i < s.size() && QStringLiteral("EeDd").contains(s[i])) {
        QString exponent = QStringLiteral("e");
        int j = i + 1;
        if (j < s.size() && (s[j] == u'-' || s[j] == u'+')) exponent += s[j++];
        const int start = j;
        while (j < s.size() && s[j] >= u'0' && s[j] <= u'9') exponent += s[j++];
        if (j > start) number += exponent;
    }
    const double v = number.toDouble();
    if (std::isinf(v)) // beyond the range of a double: the largest one, with its sign
        return std::copysign(std::numeric_limits<double>::max(), v);
    return v;
}

QString Str(double value)
{
    QString text;
    if (value == std::floor(value) && std::fabs(value) < 1e15) {
        text = QString::number(qint64(value));
    } else {
        text = QString::number(value, 'g', 15);
        if (text.contains(u'e')) {
            // 1e+20 is written 1E+20
            text.replace(u'e', u'E');
        } else if (text.startsWith(QLatin1String("0."))) {
            text.remove(0, 1);
        } else if (text.startsWith(QLatin1String("-0."))) {
            text.remove(1, 1);
        }
    }
    return value >= 0 ? u' ' + text : text;
}

qint32 CLng(double value) { return roundHalfEven<qint32>(value); }
qint16 CInt(double value) { return roundHalfEven<qint16>(value); }

QChar UCaseChar(QChar c)
{
    if (c == QChar(0x00B5)) // the micro sign has no upper case of its own
        return c;
    return c.toUpper();
}

QString Trim(const QString &text)
{
    int b = 0, e = text.size();
    while (b < e && text[b] == u' ') ++b;
    while (e > b && text[e - 1] == u' ') --e;
    return text.mid(b, e - b);
}

QString Format00(qint64 value)
{
    const quint64 magnitude = value < 0 ? 0 - quint64(value) : quint64(value);
    const QString digits = QString::number(magnitude).rightJustified(2, u'0');
    return value < 0 ? u'-' + digits : digits;
}

std::optional<QDate> CDate(const QString &text)
{
    // Groups: 1-3 year, month, day of the year-first form; 4-6 day, month, year of the
    // day-first form; 7-9 the time of day.
    static const QRegularExpression re(QStringLiteral(
        R"(^\s*(?:(\d{4})\s*[/\-.]\s*(\d{1,2})\s*[/\-.]\s*(\d{1,2})|(\d{1,2})\s*[/\-.]\s*(\d{1,2})(?:\s*[/\-.]\s*(\d{1,4})?)?))"
        R"((?:(?:\s+|T)(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)"));
    const auto m = re.match(text);
    if (!m.hasMatch())
        return std::nullopt;
    if (m.hasCaptured(7) && !QTime(m.captured(7).toInt(), m.captured(8).toInt(), m.captured(9).toInt()).isValid())
        return std::nullopt;
    if (m.hasCaptured(1)) {
        // Years before 100 are no dates, written either way round.
        const QDate date(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
        return date.isValid() && date.year() >= 100 ? std::optional(date) : std::nullopt;
    }
    const int day = m.captured(4).toInt();
    const int month = m.captured(5).toInt();
    int year = QDate::currentDate().year();
    if (m.hasCaptured(6)) {
        year = m.captured(6).toInt();
        if (m.captured(6).size() <= 2)
            year += year < 30 ? 2000 : 1900;
        else if (year < 100)
            return std::nullopt;
    }
    const QDate date(year, month, day);
    if (!date.isValid())
        return std::nullopt;
    return date;
}

QString FormatDate(const QDate &date) { return date.toString(QStringLiteral("dd/MM/yyyy")); }

} // namespace Varnel_Controles::Legacy
