// A real SQLite database for a test: the library's schema and the known rows of seed.sql,
// in a temporary file, with the connection in the library-wide slot and every statement
// recorded as the layer announced it.
#pragma once

#include "data/Conexion.h"
#include "data/cEmpresa.h"

#include <QStringList>
#include <QTemporaryDir>

class QAbstractItemModel;

namespace Varnel_Controles::Testing {

class TestDatabase
{
public:
    /// Seeded with seed.sql, or with the demo generator when `demoArticles` > 0.
    explicit TestDatabase(int demoArticles = 0);
    ~TestDatabase();

    Conexion *conexion() const { return m_connection; }
    cEmpresa *empresa(qint16 code = 1);
    QString path() const { return m_path; }

    /// Statements announced since the last clear, in order.
    QStringList statements;
    /// A single value by a query run outside the trace (for checking outcomes).
    QVariant scalar(const QString &sql) const;
    /// The rows of a query as "a|b|c" lines.
    QStringList rows(const QString &sql) const;
    /// The rows a grid shows, in the same form.
    static QStringList rows(const QAbstractItemModel &model);
    /// A fingerprint of every table (row counts and a checksum of the rows).
    QString fingerprint() const;
    /// Every row of every table as "table|a|b|c", in a stable order.
    QStringList snapshot() const;
    /// How many rows differ between two snapshots (an updated row counts once).
    static int changedRows(const QStringList &before, const QStringList &after);

private:
    QTemporaryDir m_dir;
    QString m_path;
    Conexion *m_connection = nullptr;
    QList<cEmpresa *> m_companies;
};

} // namespace Varnel_Controles::Testing
