#include "data/DbError.h"

#include "platform/UiSeam.h"

#include <QSqlError>

namespace Varnel_Controles {

DbError DbError::fromSql(const QSqlError &error)
{
    bool numeric = false;
    const qint32 native = error.nativeErrorCode().toInt(&numeric);
    QString text = error.databaseText().trimmed();
    if (text.isEmpty())
        text = error.driverText().trimmed();
    if (text.isEmpty())
        text = QStringLiteral("error desconocido");
    return DbError(numeric && native != 0 ? native : ProviderError,
                   QStringLiteral("Error de la base de datos: %1").arg(text));
}

DbError DbError::withSource(const QString &source) const
{
    return DbError(Number(), Description(), source);
}

void reportError(const QString &description, const QString &title)
{
    UiSeam::current().MsgBox(description, UiSeam::vbCritical, title);
}

} // namespace Varnel_Controles
