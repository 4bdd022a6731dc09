#include "data/cEmpresa.h"

#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"

namespace Varnel_Controles {

cEmpresa::cEmpresa(qint16 codigo, QObject *parent)
    : QObject(parent), m_codigo(codigo)
{
}

cEmpresa *cEmpresa::Cargar(Conexion *connection, qint16 codigo, QObject *parent)
{
    Recordset rs;
    rs.open(QStringLiteral("SELECT Nombre, CBarras_Cualidades, CBarras_OrdenYX, CBarras_LongCodigo, DirBase "
                           "FROM Empresas WHERE Codigo=") + SqlText::empresa(codigo),
            connection);
    if (rs.eof())
        throw DbError(DbError::ProviderError, QStringLiteral("No existe la empresa %1.").arg(codigo));
    auto *company = new cEmpresa(codigo, parent);
    company->m_nombre = rs.field(QStringLiteral("Nombre")).toString();
    company->m_cbarrasConCualidades = rs.field(QStringLiteral("CBarras_Cualidades")).toInt() != 0;
    company->m_cualidadesOrdenYX = rs.field(QStringLiteral("CBarras_OrdenYX")).toInt() != 0;
    company->m_longitudCodigo = rs.field(QStringLiteral("CBarras_LongCodigo")).toInt();
    company->m_dirBase = rs.field(QStringLiteral("DirBase")).toString();
    return company;
}

} // namespace Varnel_Controles
