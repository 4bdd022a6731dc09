// An error raised to the host: number, description and source, as the legacy error object.
#pragma once

#include "varnel_controles_export.h"

#include <QString>
#include <exception>
#include <string>

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT LegacyError : public std::exception
{
public:
    enum : qint32 {
        InvalidProcedureCall = 5,
        ObjectNotSet = 91,          // no connection or no company object
        InvalidUseOfNull = 94,      // NULL where text was expected
        InvalidPropertyValue = 380,
        InvalidPropertyArrayIndex = 381,
    };

    LegacyError(qint32 number, QString description, QString source = QString())
        : m_number(number), m_description(std::move(description)), m_source(std::move(source))
        , m_what(m_description.toStdString())
    {
    }

    qint32 Number() const { return m_number; }
    QString Description() const { return m_description; }
    QString Source() const { return m_source; }
    const char *what() const noexcept override { return m_what.c_str(); }

private:
    qint32 m_number;
    QString m_description;
    QString m_source;
    std::string m_what;
};

} // namespace Varnel_Controles
