#include "data/ContextoDatos.h"

#include "data/DbError.h"

namespace Varnel_Controles {

void ContextoDatos::setConexion(Conexion *connection)
{
    if (m_slot == OwnConnection)
        m_own = connection;
    else
        Conexion::setShared(connection);
}

qint16 ContextoDatos::empresa() const
{
    if (!m_company)
        throw DbError(DbError::ObjectNotSet, QStringLiteral("No se ha asignado la empresa (cEmpresa)."));
    return m_company->Codigo();
}

Conexion *ContextoDatos::conexion() const
{
    Conexion *c = m_slot == OwnConnection ? m_own.data() : Conexion::shared();
    if (!c)
        throw DbError(DbError::ObjectNotSet, QStringLiteral("No hay conexión con la base de datos: falta asignar Conexion."));
    return c;
}

} // namespace Varnel_Controles
