// One operation's transaction: begun when the scope is made (a savepoint inside the caller's
// transaction when there is one), undone when the scope ends unless it was committed. An
// operation of several writes either commits all of them or leaves nothing of them behind,
// and inside a caller's transaction a failure undoes only the operation's own writes.
#pragma once

#include "varnel_controles_export.h"

namespace Varnel_Controles {

class Conexion;

class VARNEL_CONTROLES_EXPORT TransactionScope
{
public:
    /// Begins a transaction (or a savepoint) on `connection`. Throws DbError.
    explicit TransactionScope(Conexion *connection);
    /// Rolls back what the scope did unless it was committed; never throws.
    ~TransactionScope();
    TransactionScope(const TransactionScope &) = delete;
    TransactionScope &operator=(const TransactionScope &) = delete;

    /// Commits (inside a caller's transaction: keeps the writes for the caller). Throws
    /// DbError; the writes are then undone when the scope ends.
    void commit();

private:
    Conexion *m_connection;
    int m_level = 0; // the connection's level this scope opened
};

} // namespace Varnel_Controles
