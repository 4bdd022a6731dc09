#include "data/TransactionScope.h"

#include "data/Conexion.h"
#include "data/DbError.h"

namespace Varnel_Controles {

TransactionScope::TransactionScope(Conexion *connection)
    : m_connection(connection)
{
    if (!m_connection)
        throw DbError(DbError::ObjectNotSet, QStringLiteral("No hay conexión con la base de datos: falta asignar Conexion."));
    m_connection->beginTrans();
    m_level = m_connection->transactionLevel();
}

TransactionScope::~TransactionScope()
{
    try {
        m_connection->rollbackTo(m_level);
    } catch (const DbError &) {
        // The connection is unusable; its next statement reports why.
    }
}

void TransactionScope::commit()
{
    if (m_connection->transactionLevel() != m_level)
        throw DbError(DbError::ProviderError, QStringLiteral("La transacción ya se había cerrado: no se ha guardado nada."));
    m_connection->commitTrans();
    m_level = 0;
}

} // namespace Varnel_Controles
