// A failure of a database procedure: number, description and source, as the legacy error
// object carried them. Controls and dialogs report it through the UI seam; the barcode class
// throws it on to its caller with its own source text.
#pragma once

#include "varnel_controles_export.h"

#include "LegacyError.h"

#include <QString>

class QSqlError;

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT DbError : public LegacyError
{
public:
    enum : qint32 { ProviderError = -2147467259 }; // 0x80004005: failure reported by the database

    using LegacyError::LegacyError;
    /// The error of a failed statement, with the driver's text; a database locked by another
    /// workstation or opened read-only is said so in Spanish.
    static DbError fromSql(const QSqlError &error);

    /// The same error with another source (a class rethrowing under its own location text).
    DbError withSource(const QString &source) const;
};

/// Shows the error's description in a critical message box (style 16) titled `title`,
/// such as "kdProveedores::Cargar".
VARNEL_CONTROLES_EXPORT void reportError(const QString &description, const QString &title);

/// Runs `procedure`; any failure is reported under `title` and the result is false.
template <typename Procedure>
bool trapErrors(const QString &title, Procedure &&procedure)
{
    try {
        return procedure();
    } catch (const DbError &e) {
        reportError(e.Description(), title);
    } catch (const std::exception &e) {
        reportError(QString::fromUtf8(e.what()), title);
    }
    return false;
}

} // namespace Varnel_Controles
