// The result of a query, read one row at a time.
//
// open():       forward-only, read-only; rows come from the database as they are read.
// openKeyset(): all rows read at once; each can be changed and written back by its key.
// openLocked(): as openKeyset, and the rows stay locked against other workstations until
//               close(): the read is a transaction level of its own (a savepoint inside the
//               caller's transaction), kept by close() and undone if the recordset is destroyed
//               open or the read fails.
// Every statement is refused with a DbError before it is prepared when it holds text SQL
// cannot store (see SqlText).
#pragma once

#include "varnel_controles_export.h"

#include <QPointer>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <optional>

namespace Varnel_Controles {

class Conexion;

class VARNEL_CONTROLES_EXPORT Recordset
{
public:
    Recordset() = default;
    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    /// Opens a forward-only, read-only query (closing a previous one). Throws DbError.
    void open(const QString &tsql, Conexion *connection);
    /// Opens an updatable copy of the rows of `table`; `keyColumns` identify a row.
    void openKeyset(const QString &tsql, Conexion *connection, const QString &table, const QStringList &keyColumns);
    /// As openKeyset, holding a lock on the rows read until close().
    void openLocked(const QString &tsql, Conexion *connection, const QString &table, const QStringList &keyColumns);

    bool isOpen() const { return m_mode != Closed; }
    /// True when there is no current row (also right after opening an empty result).
    bool eof() const;
    /// The current row's column, NULL-aware (an invalid-but-typed QVariant for NULL).
    /// Throws DbError when there is no current row or no such column.
    QVariant field(const QString &name) const;
    /// The column as text; NULL throws DbError 94 ("Uso no válido de Null").
    QString text(const QString &name) const;
    void moveNext();
    /// Names of the columns, in the order of the select list.
    QStringList fieldNames() const;
    /// Closes the query; a locked recordset commits its transaction level (inside the caller's
    /// transaction the writes wait for the caller's commit).
    void close();

    /// Updatable recordsets: change a column of the current row, then write it with update().
    void setField(const QString &name, const QVariant &value);
    void update();
    /// Updatable recordsets: inserts a row into the table at once.
    void addNew(const QStringList &columns, const QVariantList &values);

    /// A value written into a statement: text quoted with apostrophes doubled (text SQL cannot
    /// store throws DbError), numbers plain, Booleans 1/0, NULL.
    static QString literal(const QVariant &value);

private:
    enum Mode { Closed, ForwardOnly, Keyset };
    void requireRow() const;
    void requireUpdatable() const;
    void fail(const QString &description) const;
    void loadAll(const QString &adapted);
    void prepareKeyset(Conexion *connection, const QString &table, const QStringList &keyColumns);
    void endLock(bool keep);

    Mode m_mode = Closed;
    Conexion *m_connection = nullptr;
    QSqlQuery m_query;
    QSqlRecord m_columns; // forward-only: the names of the columns
    QString m_preparedKey;          // forward-only: the connection's prepared read it holds
    QPointer<QObject> m_cacheOwner; // … and the connection it goes back to on close
    bool m_atEnd = true;
    // Keyset mode
    QVector<QSqlRecord> m_rows;
    QVector<QVector<QVariant>> m_keys;
    int m_row = 0;
    QString m_table;
    QStringList m_keyColumns;
    QStringList m_changed;
    int m_lockLevel = 0; // the connection's transaction level a locked read opened
};

} // namespace Varnel_Controles
