#include "platform/PropertyBag.h"

#include "platform/Legacy.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <cmath>
#include <limits>

namespace Varnel_Controles {

namespace {

const QString kFontGuid = QStringLiteral("{0BE35203-8F91-11CE-9DE3-00AA004BB851}");
// Forms nest object blocks a few levels deep (a toolbar's buttons and their menus); a deeper
// block is not a form file.
constexpr int kMaxDepth = 32;
// The widest whole-number property is a 32-bit Long, also written unsigned (a colour).
constexpr qlonglong kMinWhole = std::numeric_limits<qint32>::min();
constexpr qlonglong kMaxWhole = std::numeric_limits<quint32>::max();
// The largest font size the host forms take, in points.
constexpr double kMaxFontSize = 2160;

bool isNumber(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::Bool: case QMetaType::Int: case QMetaType::UInt: case QMetaType::Short:
    case QMetaType::UShort: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Double: case QMetaType::Float: case QMetaType::Char: case QMetaType::UChar:
        return true;
    default:
        return false;
    }
}

bool isFloating(const QVariant &v)
{
    return v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Float;
}

qint32 as32(const QVariant &v)
{
    if (v.typeId() == QMetaType::Bool)
        return v.toBool() ? -1 : 0;
    return qint32(quint32(v.toLongLong()));
}

QString quoted(const QString &s)
{
    QString out = s;
    out.replace(u'"', QLatin1String("\"\""));
    return u'"' + out + u'"';
}

QString valueText(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? QStringLiteral("-1  'True") : QStringLiteral("0   'False");
    case QMetaType::UInt:
        return QStringLiteral("&H%1&").arg(v.toUInt(), 8, 16, QLatin1Char('0')).toUpper();
    case QMetaType::Double: case QMetaType::Float: {
        QString t = QString::number(v.toDouble(), 'g', 15);
        // A whole decimal beyond a Long keeps its point, or it would read back as a Long
        // out of range.
        const double d = v.toDouble();
        if (!t.contains(u'.') && !t.contains(u'e') && (d < kMinWhole || d > kMaxWhole))
            t += QStringLiteral(".0");
        return t;
    }
    case QMetaType::QString:
        return quoted(v.toString());
    default:
        if (isNumber(v))
            return QString::number(v.toLongLong());
        return quoted(v.toString());
    }
}

QString line(int indent, const QString &key, const QString &value)
{
    return QString(indent, u' ') + key.leftJustified(16) + QStringLiteral("=   ") + value + u'\n';
}

struct Parser
{
    QStringList lines;
    int pos = 0; // index of the next line
    QHash<QString, int> keyLines; // the line of each key of the outermost block

    [[noreturn]] void fail(int lineNo, const QString &message) { throw PropertyBagError(lineNo, message); }

    static QString stripComment(const QString &s)
    {
        bool inString = false;
        for (int i = 0; i < s.size(); ++i) {
            if (s[i] == u'"') inString = !inString;
            else if (s[i] == u'\'' && !inString) return s.left(i).trimmed();
        }
        return s.trimmed();
    }

    QVariant parseValue(const QString &raw, int lineNo)
    {
        QString text = raw.trimmed();
        if (text.startsWith(u'$') || (text.startsWith(u'"') && text.contains(QLatin1String(".frx\":")))) {
            fail(lineNo, QStringLiteral("el valor está guardado en un fichero .frx, que no se puede leer aquí"));
        }
        if (text.startsWith(u'"')) {
            QString out;
            int i = 1;
            for (; i < text.size(); ++i) {
                if (text[i] == u'"') {
                    if (i + 1 < text.size() && text[i + 1] == u'"') { out += u'"'; ++i; }
                    else break;
                } else {
                    out += text[i];
                }
            }
            if (i >= text.size())
                fail(lineNo, QStringLiteral("falta la comilla que cierra el texto"));
            const QString rest = text.mid(i + 1).trimmed();
            if (!rest.isEmpty() && !rest.startsWith(u'\''))
                fail(lineNo, QStringLiteral("sobra «%1» detrás del texto").arg(rest));
            return out;
        }
        const QString comment = text.contains(u'\'') ? text.mid(text.indexOf(u'\'') + 1).trimmed() : QString();
        text = stripComment(text);
        static const QRegularExpression hex(QStringLiteral(R"(^&H([0-9A-Fa-f]{1,8})&?$)"));
        static const QRegularExpression integer(QStringLiteral(R"(^[-+]?\d+$)"));
        static const QRegularExpression decimal(QStringLiteral(R"(^[-+]?(\d+\.?\d*|\.\d+)([Ee][-+]?\d+)?$)"));
        if (const auto m = hex.match(text); m.hasMatch())
            return QVariant::fromValue<quint32>(m.captured(1).toUInt(nullptr, 16));
        if (integer.match(text).hasMatch()) {
            bool ok = false;
            const qlonglong v = text.toLongLong(&ok);
            if (!ok || v < kMinWhole || v > kMaxWhole)
                fail(lineNo, QStringLiteral("el número %1 no cabe en un entero de 32 bits").arg(text));
            if (comment.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
                || comment.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
                return QVariant(v != 0);
            if (v >= std::numeric_limits<qint32>::min() && v <= std::numeric_limits<qint32>::max())
                return QVariant(qint32(v));
            return QVariant(v);
        }
        if (decimal.match(text).hasMatch()) {
            const double v = text.toDouble();
            if (!std::isfinite(v))
                fail(lineNo, QStringLiteral("el número %1 está fuera del rango de los números").arg(text));
            return QVariant(v);
        }
        if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return QVariant(true);
        if (text.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return QVariant(false);
        fail(lineNo, text.isEmpty() ? QStringLiteral("falta el valor detrás del signo =")
                                    : QStringLiteral("valor no reconocido: «%1»").arg(text));
    }

    // Reads `Key = value` lines and property sub-blocks until `endWord` (or the end of text);
    // `depth` counts the BeginProperty blocks around this one, `sizeLine` receives the line
    // of its Size.
    QList<QPair<QString, QVariant>> parseBlock(const QString &endWord, int openedAt, int depth, int &sizeLine)
    {
        static const QRegularExpression keyRe(QStringLiteral(R"(^[A-Za-z_][A-Za-z0-9_]*(\(\d+\))?$)"));
        QList<QPair<QString, QVariant>> items;
        while (pos < lines.size()) {
            const int lineNo = pos + 1;
            const QString text = lines[pos++].trimmed();
            if (text.isEmpty() || text.startsWith(u'\''))
                continue;
            const QString firstWord = text.section(u' ', 0, 0, QString::SectionSkipEmpty);
            if (firstWord.compare(endWord, Qt::CaseInsensitive) == 0 && !endWord.isEmpty())
                return items;
            if (firstWord.compare(QLatin1String("EndProperty"), Qt::CaseInsensitive) == 0
                || firstWord.compare(QLatin1String("End"), Qt::CaseInsensitive) == 0)
                fail(lineNo, QStringLiteral("«%1» sin bloque abierto").arg(firstWord));
            if (firstWord.compare(QLatin1String("Begin"), Qt::CaseInsensitive) == 0)
                fail(lineNo, QStringLiteral("un bloque de propiedades no puede contener otro control"));
            if (firstWord.compare(QLatin1String("BeginProperty"), Qt::CaseInsensitive) == 0) {
                const QStringList parts = text.split(u' ', Qt::SkipEmptyParts);
                if (parts.size() < 2)
                    fail(lineNo, QStringLiteral("falta el nombre de la propiedad tras BeginProperty"));
                if (depth >= kMaxDepth)
                    fail(lineNo, QStringLiteral("demasiados bloques BeginProperty anidados (más de %1)").arg(kMaxDepth));
                int subSizeLine = 0;
                const auto sub = parseBlock(QStringLiteral("EndProperty"), lineNo, depth + 1, subSizeLine);
                const bool isFont = (parts.size() > 2 && parts[2].compare(kFontGuid, Qt::CaseInsensitive) == 0)
                    || subSizeLine > 0;
                if (isFont) {
                    const StdFont font = fontFrom(sub);
                    if (!(font.Size > 0 && font.Size <= kMaxFontSize))
                        fail(subSizeLine > 0 ? subSizeLine : lineNo,
                             QStringLiteral("tamaño de letra fuera de rango: %1 (hasta %2 puntos)").arg(font.Size).arg(kMaxFontSize));
                    items.append({parts[1], QVariant::fromValue(font)});
                    if (depth == 0)
                        keyLines.insert(parts[1], lineNo);
                }
                continue; // other object blocks are not used by the controls
            }
            const int eq = text.indexOf(u'=');
            if (eq < 0)
                fail(lineNo, QStringLiteral("falta el signo = en «%1»").arg(text));
            const QString key = text.left(eq).trimmed();
            static const QStringList blockWords{QStringLiteral("Begin"), QStringLiteral("End"),
                                                QStringLiteral("BeginProperty"), QStringLiteral("EndProperty")};
            if (!keyRe.match(key).hasMatch() || blockWords.contains(key, Qt::CaseInsensitive))
                fail(lineNo, QStringLiteral("nombre de propiedad no válido: «%1»").arg(key));
            if (key == QLatin1String("Size"))
                sizeLine = lineNo;
            items.append({key, parseValue(text.mid(eq + 1), lineNo)});
            if (depth == 0)
                keyLines.insert(key, lineNo);
        }
        if (!endWord.isEmpty())
            fail(openedAt, QStringLiteral("falta %1 para el bloque abierto en esta línea").arg(endWord));
        return items;
    }

    // Numbers are converted without leaving their range: Charset and Weight are 16-bit.
    static StdFont fontFrom(const QList<QPair<QString, QVariant>> &sub)
    {
        StdFont f;
        for (const auto &[k, v] : sub) {
            if (k == QLatin1String("Name")) f.Name = v.toString();
            else if (k == QLatin1String("Size")) f.Size = v.toDouble();
            else if (k == QLatin1String("Charset")) f.Charset = Legacy::CInt(v.toDouble());
            else if (k == QLatin1String("Weight")) f.Weight = Legacy::CInt(v.toDouble());
            else if (k == QLatin1String("Underline")) f.Underline = v.toDouble() != 0;
            else if (k == QLatin1String("Italic")) f.Italic = v.toDouble() != 0;
            else if (k == QLatin1String("Strikethrough")) f.Strikethrough = v.toDouble() != 0;
        }
        return f;
    }
};

} // namespace

PropertyBagError::PropertyBagError(int line, const QString &message)
    : std::runtime_error(QStringLiteral("Línea %1: %2").arg(line).arg(message).toStdString())
    , m_line(line), m_message(message)
{
}

QVariant PropertyBag::ReadProperty(const QString &key, const QVariant &defaultValue) const
{
    for (const auto &[k, v] : m_items)
        if (k == key)
            return v;
    return defaultValue;
}

void PropertyBag::WriteProperty(const QString &key, const QVariant &value, const QVariant &defaultValue)
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i].first == key) {
            m_items.removeAt(i);
            break;
        }
    }
    if (!sameValue(value, defaultValue))
        m_items.append({key, value});
}

int PropertyBag::lineOf(const QString &key) const
{
    return m_lines.value(key, 0);
}

void PropertyBag::requireRange(const QString &key, qint64 min, qint64 max) const
{
    if (!contains(key))
        return;
    const QVariant value = ReadProperty(key);
    bool ok = isNumber(value) && !isFloating(value);
    const qint64 number = value.typeId() == QMetaType::Bool ? (value.toBool() ? -1 : 0) : value.toLongLong();
    if (isFloating(value)) {
        const double d = value.toDouble();
        ok = std::isfinite(d) && d == std::floor(d) && d >= double(min) && d <= double(max);
    } else {
        ok = ok && number >= min && number <= max;
    }
    if (!ok)
        throw PropertyBagError(lineOf(key), QStringLiteral("%1 = %2 está fuera de su rango (de %3 a %4)")
                                                .arg(key, value.toString(), QString::number(min), QString::number(max)));
}

bool PropertyBag::contains(const QString &key) const
{
    return std::any_of(m_items.begin(), m_items.end(), [&](const auto &p) { return p.first == key; });
}

QStringList PropertyBag::keys() const
{
    QStringList out;
    for (const auto &p : m_items)
        out << p.first;
    return out;
}

bool PropertyBag::sameValue(const QVariant &a, const QVariant &b)
{
    if (a.canConvert<StdFont>() && a.typeId() == qMetaTypeId<StdFont>())
        return b.typeId() == qMetaTypeId<StdFont>() && a.value<StdFont>() == b.value<StdFont>();
    if (b.typeId() == qMetaTypeId<StdFont>())
        return false;
    if (isNumber(a) && isNumber(b)) {
        if (isFloating(a) || isFloating(b))
            return a.toDouble() == b.toDouble();
        return as32(a) == as32(b);
    }
    if (!a.isValid() || !b.isValid())
        return a.isValid() == b.isValid() || a.toString().isEmpty() == b.toString().isEmpty();
    return a.toString() == b.toString();
}

QString PropertyBag::toText(int indent) const
{
    QString out;
    for (const auto &[key, value] : m_items) {
        if (value.typeId() == qMetaTypeId<StdFont>()) {
            const StdFont f = value.value<StdFont>();
            out += QString(indent, u' ') + QStringLiteral("BeginProperty %1 %2\n").arg(key, kFontGuid);
            out += line(indent + 3, QStringLiteral("Name"), quoted(f.Name));
            out += line(indent + 3, QStringLiteral("Size"), QString::number(f.Size, 'g', 15));
            out += line(indent + 3, QStringLiteral("Charset"), QString::number(f.Charset));
            out += line(indent + 3, QStringLiteral("Weight"), QString::number(f.Weight));
            out += line(indent + 3, QStringLiteral("Underline"), valueText(f.Underline));
            out += line(indent + 3, QStringLiteral("Italic"), valueText(f.Italic));
            out += line(indent + 3, QStringLiteral("Strikethrough"), valueText(f.Strikethrough));
            out += QString(indent, u' ') + QStringLiteral("EndProperty\n");
        } else {
            out += line(indent, key, valueText(value));
        }
    }
    return out;
}

PropertyBag PropertyBag::fromText(const QString &text)
{
    Parser parser;
    parser.lines = text.split(u'\n');
    for (QString &l : parser.lines)
        if (l.endsWith(u'\r')) l.chop(1);

    // A block copied with its Begin/End lines is read between them.
    int first = 0;
    while (first < parser.lines.size() && parser.lines[first].trimmed().isEmpty()) ++first;
    QString endWord;
    if (first < parser.lines.size()
        && parser.lines[first].trimmed().section(u' ', 0, 0).compare(QLatin1String("Begin"), Qt::CaseInsensitive) == 0) {
        parser.pos = first + 1;
        endWord = QStringLiteral("End");
    }
    PropertyBag bag;
    int sizeLine = 0;
    bag.m_items = parser.parseBlock(endWord, first + 1, 0, sizeLine);
    bag.m_lines = parser.keyLines;
    while (parser.pos < parser.lines.size()) {
        const QString rest = parser.lines[parser.pos++].trimmed();
        if (!rest.isEmpty())
            throw PropertyBagError(parser.pos, QStringLiteral("texto después del final del bloque: «%1»").arg(rest));
    }
    return bag;
}

} // namespace Varnel_Controles
