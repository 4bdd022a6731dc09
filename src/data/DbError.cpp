#include "data/DbError.h"

#include "platform/UiSeam.h"

#include <QSqlError>

namespace Varnel_Controles {

DbError DbError::fromSql(const QSqlError &error)
{
    bool numeric = false;
    const qint32 native = error.nativeErrorCode().toInt(&numeric);
    // SQLite's lock and read-only failures, told the way a clerk can act on them.
    const QString sqliteText = error.databaseText();
    // (Extended codes keep the primary one in their low byte: 517, a stale snapshot, is busy too.)
    if (numeric && ((native & 0xFF) == 5 || (native & 0xFF) == 6) && sqliteText.contains(QLatin1String("locked")))
        return DbError(native, QStringLiteral("La base de datos está ocupada en otro puesto. Espere un momento y "
                                              "vuelva a intentarlo."));
    if (numeric && native == 8 && sqliteText.contains(QLatin1String("readonly")))
        return DbError(native, QStringLiteral("La base de datos está abierta solo para consultar: no se ha guardado "
                                              "el cambio."));
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
