// The date-to-text service: dates written into statements between apostrophes in a form SQL
// Server reads the same whatever its language setting ("2026-11-21T00:00:00"), and in the
// short form of the system ("21/11/2026") where a statement asks for that.
#pragma once

#include "varnel_controles_export.h"

#include <QDate>
#include <QString>

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT FechaSQL
{
public:
    /// The one instance of the process, created on first use.
    static FechaSQL &instance();
    /// The date as SQL date text, unambiguous for the server.
    QString Texto(const QDate &date) const;
    /// Today as SQL date text.
    QString Hoy() const { return Texto(QDate::currentDate()); }
    /// The system's short date form, dd/mm/yyyy.
    static QString Corta(const QDate &date);
    /// Reads a date column's value (a date, a date-time or date text) as a date.
    static QDate Leer(const QVariant &value);

private:
    FechaSQL() = default;
};

} // namespace Varnel_Controles
