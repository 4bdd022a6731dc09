#include "data/FechaSQL.h"

#include "platform/Legacy.h"

#include <QDateTime>
#include <QVariant>

namespace Varnel_Controles {

FechaSQL &FechaSQL::instance()
{
    static FechaSQL service;
    return service;
}

QString FechaSQL::Texto(const QDate &date) const
{
    return date.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral("T00:00:00");
}

QString FechaSQL::Corta(const QDate &date) { return Legacy::FormatDate(date); }

QDate FechaSQL::Leer(const QVariant &value)
{
    if (value.isNull())
        return QDate();
    if (value.typeId() == QMetaType::QDate)
        return value.toDate();
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().date();
    const QString text = value.toString().trimmed();
    const QDate iso = QDate::fromString(text.left(10), Qt::ISODate);
    if (iso.isValid())
        return iso;
    return Legacy::CDate(text).value_or(QDate());
}

} // namespace Varnel_Controles
