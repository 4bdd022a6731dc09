#include "data/SqlText.h"

#include "platform/Legacy.h"

namespace Varnel_Controles::SqlText {

QString empresa(qint16 code) { return QString::number(code); }

QString codigo(const QString &typed) { return Legacy::Str(Legacy::Val(typed)); }

QString numero(double value) { return Legacy::Str(value); }

QString texto(const QString &text)
{
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

} // namespace Varnel_Controles::SqlText
