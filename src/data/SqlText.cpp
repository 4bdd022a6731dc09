#include "data/SqlText.h"

#include "data/DbError.h"
#include "platform/Legacy.h"

namespace Varnel_Controles::SqlText {

namespace {

// The first code unit SQL cannot store, or -1.
qsizetype firstUnstorable(QStringView text)
{
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t u = text[i].unicode();
        if (u >= 0x20 && u < 0xD800)
            continue;
        if (QChar::isHighSurrogate(u) && i + 1 < n && QChar::isLowSurrogate(text[i + 1].unicode()))
            ++i;
        else if (u == 0 || QChar::isSurrogate(u) || u == 0xFFFE || u == 0xFFFF)
            return i;
    }
    return -1;
}

} // namespace

QString empresa(qint16 code) { return QString::number(code); }

QString codigo(const QString &typed) { return Legacy::Str(Legacy::Val(typed)); }

QString numero(double value) { return Legacy::Str(value); }

QString texto(const QString &text)
{
    if (const qsizetype bad = firstUnstorable(text); bad >= 0)
        throw DbError(DbError::InvalidProcedureCall,
                      QStringLiteral("El texto contiene un carácter no válido en la posición %1: no se puede buscar "
                                     "ni guardar en la base de datos.").arg(bad + 1));
    QString out = text;
    out.replace(u'\'', QLatin1String("''"));
    return out;
}

QString bit(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

QString patron(const QString &filter)
{
    QString p = filter;
    if (!p.endsWith(u'*'))
        p += u'*';
    p.replace(u'*', u'%');
    return texto(p);
}

QString patronLiteral(const QString &filter)
{
    QString escaped;
    escaped.reserve(filter.size() + 8);
    for (QChar c : filter) {
        if (c == u'%' || c == u'_' || c == u'[')
            escaped += u'[' + QString(c) + u']';
        else
            escaped += c;
    }
    return patron(escaped);
}

bool storable(QStringView text) { return firstUnstorable(text) < 0; }

void comprobarInstruccion(QStringView statement)
{
    if (const qsizetype bad = firstUnstorable(statement); bad >= 0)
        throw DbError(DbError::InvalidProcedureCall,
                      QStringLiteral("La instrucción SQL contiene un carácter no válido en la posición %1: no se ha "
                                     "ejecutado.").arg(bad + 1));
}

} // namespace Varnel_Controles::SqlText
