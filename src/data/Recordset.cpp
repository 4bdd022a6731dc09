#include "data/Recordset.h"

#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/SqlText.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlField>
#include <cmath>
#include <utility>

namespace Varnel_Controles {

namespace {

// The columns a keyset recordset adds to the select list to find its rows again.
QString keyAlias(int i) { return QStringLiteral("kd_key_%1").arg(i); }

// Inserts the key columns before the first top-level FROM of the statement.
QString withKeyColumns(const QString &tsql, const QString &table, const QStringList &keys)
{
    static const QRegularExpression from(QStringLiteral(R"(\sFROM\s)"), QRegularExpression::CaseInsensitiveOption);
    const auto m = from.match(tsql);
    if (!m.hasMatch())
        return tsql;
    QString extra;
    for (int i = 0; i < keys.size(); ++i)
        extra += QStringLiteral(", %1.%2 AS %3").arg(table, keys[i], keyAlias(i));
    QString out = tsql;
    out.insert(m.capturedStart(), extra);
    return out;
}

// SQL Server keeps the rows read under an update lock until the transaction ends.
QString withLockHint(const QString &tsql, const QString &table)
{
    const QRegularExpression from(QStringLiteral(R"(\bFROM\s+%1\b)").arg(QRegularExpression::escape(table)),
                                  QRegularExpression::CaseInsensitiveOption);
    QString out = tsql;
    const auto m = from.match(out);
    if (m.hasMatch())
        out.insert(m.capturedEnd(), QStringLiteral(" WITH (UPDLOCK, ROWLOCK, HOLDLOCK)"));
    return out;
}

// The statement with its literals as parameters ("?"), their values in `values`: every text
// literal, and the whole numbers compared with =, <, >, <>, <= or >= (those in an ORDER BY,
// a LIMIT or a list stay, so does any number of more than 18 digits). Empty when the statement
// is not one to prepare this way (a comment, an N'' literal, a quote left open).
QString parameterized(const QString &sql, QVariantList &values)
{
    QString out;
    out.reserve(sql.size());
    QChar last; // the last character written that is not a blank
    const qsizetype n = sql.size();
    const auto word = [](QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$' || c == u'@' || c == u'#'; };
    for (qsizetype i = 0; i < n;) {
        const QChar c = sql.at(i);
        if (c == u'\'') {
            if (!out.isEmpty() && word(out.back()))
                return QString(); // N'…'
            QString text;
            text.reserve(16); // '' is an empty text, never a NULL
            qsizetype j = i + 1;
            for (;; ++j) {
                if (j >= n)
                    return QString();
                if (sql.at(j) == u'\'') {
                    if (j + 1 < n && sql.at(j + 1) == u'\'') {
                        text += u'\'';
                        ++j;
                        continue;
                    }
                    break;
                }
                text += sql.at(j);
            }
            values << text;
            out += u'?';
            last = u'?';
            i = j + 1;
        } else if ((c == u'-' || c == u'/') && i + 1 < n && sql.at(i + 1) == (c == u'-' ? u'-' : u'*')) {
            return QString();
        } else if (c >= u'0' && c <= u'9' && (last == u'=' || last == u'<' || last == u'>')
                   && (out.isEmpty() || !word(out.back()))) {
            qsizetype j = i;
            while (j < n && sql.at(j) >= u'0' && sql.at(j) <= u'9')
                ++j;
            if (j - i > 18 || (j < n && (word(sql.at(j)) || sql.at(j) == u'.'))) {
                out += sql.mid(i, j - i);
                last = sql.at(j - 1);
            } else {
                values << sql.mid(i, j - i).toLongLong();
                out += u'?';
                last = u'?';
            }
            i = j;
        } else if (word(c) || c == u'[') {
            qsizetype j = i + 1;
            if (c == u'[')
                while (j < n && sql.at(j - 1) != u']')
                    ++j;
            else
                while (j < n && word(sql.at(j)))
                    ++j;
            out += sql.mid(i, j - i);
            last = sql.at(j - 1);
            i = j;
        } else {
            out += c;
            if (!c.isSpace())
                last = c;
            ++i;
        }
    }
    return out;
}

} // namespace

Recordset::~Recordset()
{
    try {
        if (m_mode == ForwardOnly)
            close(); // the prepared read goes back to its connection
        endLock(false);
    } catch (const DbError &) {
        // The connection is unusable; its next statement reports why.
    }
}

// Ends the transaction level of a locked read: its writes kept for the caller, or undone.
void Recordset::endLock(bool keep)
{
    const int level = std::exchange(m_lockLevel, 0);
    if (level == 0 || !m_connection)
        return;
    if (keep && m_connection->transactionLevel() == level) {
        try {
            m_connection->commitTrans();
            return;
        } catch (const DbError &) {
            m_connection->rollbackTo(level);
            throw;
        }
    }
    m_connection->rollbackTo(level);
}

void Recordset::fail(const QString &description) const
{
    throw DbError(DbError::ProviderError, description);
}

void Recordset::open(const QString &tsql, Conexion *connection)
{
    close();
    if (!connection)
        throw DbError(DbError::ObjectNotSet, QStringLiteral("No hay conexión con la base de datos: falta asignar Conexion."));
    const QString statement = connection->adapt(tsql);
    connection->trace(tsql);
    const QSqlDatabase db = connection->readDatabase();
    // On SQLite the statement is prepared once per text with its literals as parameters: a
    // lookup then costs its execution only.
    QVariantList values;
    // Qt's driver sizes a row when a statement is prepared, SQLite notices a table changed by
    // another connection only at the first step: a read whose columns follow the table ("*")
    // brings the connection's schema up to date first, and is never kept prepared.
    const bool sqlite = connection->dialect() == Conexion::Sqlite;
    const bool everyColumn = sqlite && statement.contains(u'*');
    if (everyColumn)
        connection->refreshSchema(db);
    const QString shape = sqlite && !everyColumn ? parameterized(statement, values) : QString();
    bool done = false;
    if (!shape.isEmpty()) {
        m_preparedKey = db.connectionName() + u'\n' + shape;
        std::vector<QSqlQuery> &free = connection->m_prepared[m_preparedKey];
        if (!free.empty()) {
            m_query = std::move(free.back());
            free.pop_back();
            done = true;
        } else {
            m_query = QSqlQuery(db);
            m_query.setForwardOnly(true);
            done = m_query.prepare(shape); // else the text as it is, which reports its own error
        }
        for (qsizetype i = 0; done && i < values.size(); ++i)
            m_query.bindValue(int(i), values[i]);
        if (!done)
            m_preparedKey.clear();
    }
    if (!done) {
        m_query = QSqlQuery(db);
        m_query.setForwardOnly(true);
    }
    if (!(done ? m_query.exec() : m_query.exec(statement))) {
        const DbError error = DbError::fromSql(m_query.lastError());
        m_query = QSqlQuery();
        m_preparedKey.clear();
        throw error;
    }
    m_connection = connection;
    m_cacheOwner = connection;
    m_mode = ForwardOnly;
    m_columns = m_query.record(); // the names once per execution: a record per field read is costly
    m_atEnd = !m_query.next();
}

void Recordset::loadAll(const QString &adapted)
{
    if (m_connection->dialect() == Conexion::Sqlite && adapted.contains(u'*'))
        m_connection->refreshSchema(m_connection->database());
    QSqlQuery q(m_connection->database());
    q.setForwardOnly(true);
    if (!q.exec(adapted))
        throw DbError::fromSql(q.lastError());
    while (q.next()) {
        QSqlRecord record = q.record();
        QVector<QVariant> key;
        for (int i = 0; i < m_keyColumns.size(); ++i) {
            key << record.value(keyAlias(i));
            record.remove(record.indexOf(keyAlias(i)));
        }
        m_rows << record;
        m_keys << key;
    }
    if (q.lastError().isValid())
        throw DbError::fromSql(q.lastError());
}

void Recordset::prepareKeyset(Conexion *connection, const QString &table, const QStringList &keyColumns)
{
    close();
    if (!connection)
        throw DbError(DbError::ObjectNotSet, QStringLiteral("No hay conexión con la base de datos: falta asignar Conexion."));
    m_connection = connection;
    m_table = table;
    m_keyColumns = keyColumns;
}

void Recordset::openKeyset(const QString &tsql, Conexion *connection, const QString &table, const QStringList &keyColumns)
{
    prepareKeyset(connection, table, keyColumns);
    const QString statement = connection->adapt(withKeyColumns(tsql, table, keyColumns));
    connection->trace(tsql);
    loadAll(statement);
    m_mode = Keyset;
    m_row = 0;
}

void Recordset::openLocked(const QString &tsql, Conexion *connection, const QString &table, const QStringList &keyColumns)
{
    prepareKeyset(connection, table, keyColumns);
    QString statement = withKeyColumns(tsql, table, keyColumns);
    if (connection->dialect() == Conexion::SqlServer)
        statement = withLockHint(statement, table);
    statement = connection->adapt(statement);
    connection->beginTrans();
    m_lockLevel = connection->transactionLevel();
    connection->trace(tsql);
    try {
        loadAll(statement);
    } catch (...) {
        endLock(false);
        throw;
    }
    m_mode = Keyset;
    m_row = 0;
}

bool Recordset::eof() const
{
    switch (m_mode) {
    case ForwardOnly: return m_atEnd;
    case Keyset: return m_row >= m_rows.size();
    case Closed: return true;
    }
    return true;
}

void Recordset::requireRow() const
{
    if (m_mode == Closed)
        fail(QStringLiteral("La consulta está cerrada."));
    if (eof())
        fail(QStringLiteral("No hay registro actual: la consulta está al final."));
}

QVariant Recordset::field(const QString &name) const
{
    requireRow();
    const QSqlRecord &record = m_mode == Keyset ? m_rows[m_row] : m_columns;
    const int index = record.indexOf(name);
    if (index < 0)
        fail(QStringLiteral("No existe la columna %1 en la consulta.").arg(name));
    if (m_mode == ForwardOnly)
        return m_query.value(index);
    return record.value(index);
}

QString Recordset::text(const QString &name) const
{
    const QVariant v = field(name);
    if (v.isNull())
        throw DbError(DbError::InvalidUseOfNull, QStringLiteral("Uso no válido de Null (columna %1).").arg(name));
    if (v.typeId() == QMetaType::Double) {
        const double d = v.toDouble();
        if (d == std::floor(d) && std::fabs(d) < 1e15)
            return QString::number(qint64(d));
        return QString::number(d, 'g', 15).replace(u'.', u',');
    }
    return v.toString();
}

QStringList Recordset::fieldNames() const
{
    const QSqlRecord record = m_mode == Keyset ? (m_rows.isEmpty() ? QSqlRecord() : m_rows.first()) : m_query.record();
    QStringList names;
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
    return names;
}

void Recordset::moveNext()
{
    requireRow();
    if (m_mode == ForwardOnly) {
        m_atEnd = !m_query.next();
        if (m_atEnd && m_query.lastError().isValid())
            throw DbError::fromSql(m_query.lastError());
    } else {
        ++m_row;
        m_changed.clear();
    }
}

void Recordset::close()
{
    if (m_mode == ForwardOnly) {
        m_query.finish();
        if (!m_preparedKey.isEmpty() && m_cacheOwner) {
            auto &cache = static_cast<Conexion *>(m_cacheOwner.data())->m_prepared;
            if (cache.size() > 256)
                cache.clear();
            cache[m_preparedKey].push_back(std::move(m_query));
        }
    }
    m_preparedKey.clear();
    m_query = QSqlQuery();
    m_rows.clear();
    m_keys.clear();
    m_changed.clear();
    m_mode = Closed;
    m_atEnd = true;
    endLock(true);
}

void Recordset::requireUpdatable() const
{
    if (m_mode != Keyset)
        fail(QStringLiteral("La consulta es de solo lectura."));
}

void Recordset::setField(const QString &name, const QVariant &value)
{
    requireUpdatable();
    requireRow();
    QSqlRecord &record = m_rows[m_row];
    if (record.indexOf(name) < 0)
        fail(QStringLiteral("No existe la columna %1 en la consulta.").arg(name));
    record.setValue(name, value);
    if (!m_changed.contains(name))
        m_changed << name;
}

void Recordset::update()
{
    requireUpdatable();
    requireRow();
    if (m_changed.isEmpty())
        return;
    QStringList sets, where;
    for (const QString &name : std::as_const(m_changed))
        sets << QStringLiteral("%1 = %2").arg(name, literal(m_rows[m_row].value(name)));
    for (int i = 0; i < m_keyColumns.size(); ++i)
        where << QStringLiteral("%1 = %2").arg(m_keyColumns[i], literal(m_keys[m_row][i]));
    m_connection->execute(QStringLiteral("UPDATE %1 SET %2 WHERE %3").arg(m_table, sets.join(QStringLiteral(", ")),
                                                                       where.join(QStringLiteral(" AND "))));
    // The row is now known by its new key values.
    for (int i = 0; i < m_keyColumns.size(); ++i)
        if (m_changed.contains(m_keyColumns[i], Qt::CaseInsensitive))
            m_keys[m_row][i] = m_rows[m_row].value(m_keyColumns[i]);
    m_changed.clear();
}

void Recordset::addNew(const QStringList &columns, const QVariantList &values)
{
    requireUpdatable();
    QStringList literals;
    for (const QVariant &v : values)
        literals << literal(v);
    m_connection->execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                              .arg(m_table, columns.join(QStringLiteral(", ")), literals.join(QStringLiteral(", "))));
}

QString Recordset::literal(const QVariant &value)
{
    if (value.isNull() || !value.isValid())
        return QStringLiteral("NULL");
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Short: case QMetaType::UShort:
        return QString::number(value.toLongLong());
    case QMetaType::Double: case QMetaType::Float:
        return QString::number(value.toDouble(), 'g', 17);
    default:
        return u'\'' + SqlText::texto(value.toString()) + u'\'';
    }
}

} // namespace Varnel_Controles
