#include "TestDatabase.h"

#include "DemoData.h"

#include <QAbstractItemModel>
#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>

// Resources of a static library are registered by hand, outside any namespace.
static void initSeedResource() { Q_INIT_RESOURCE(testsupport); }

namespace Varnel_Controles::Testing {

namespace {

// The schema and seed.sql, written once per process; each test database is a copy of it.
QString seededTemplate()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString file = dir.filePath(QStringLiteral("seed.db"));
        Demo::createEmpty(file);
        const std::unique_ptr<Conexion> connection(Conexion::open(QStringLiteral("sqlite:") + file));
        initSeedResource();
        QFile seed(QStringLiteral(":/testsupport/seed.sql"));
        seed.open(QIODevice::ReadOnly);
        const QRegularExpression comments(QStringLiteral("^[ \\t]*--.*$"), QRegularExpression::MultilineOption);
        QSqlQuery q(connection->database());
        for (const QString &statement : QString::fromUtf8(seed.readAll()).remove(comments).split(QStringLiteral(";\n")))
            if (!statement.trimmed().isEmpty() && !q.exec(statement))
                throw std::runtime_error(("seed: " + q.lastError().text() + " in " + statement).toStdString());
        return file; // closing the last connection folds the write-ahead log into the file
    }();
    return path;
}

} // namespace

TestDatabase::TestDatabase(int demoArticles)
{
    m_path = m_dir.filePath(QStringLiteral("empresa.db"));
    if (demoArticles > 0)
        Demo::generate(m_path, Demo::Options{.articulos = demoArticles});
    else if (!QFile::copy(seededTemplate(), m_path))
        throw std::runtime_error("seed: the seeded database could not be copied");
    m_connection = Conexion::open(QStringLiteral("sqlite:") + m_path);
    Conexion::resetShared();
    Conexion::setShared(m_connection);
    QObject::connect(m_connection, &Conexion::Statement, m_connection,
                     [this](const QString &sql) { statements << sql; });
}

TestDatabase::~TestDatabase()
{
    qDeleteAll(m_companies);
    Conexion::resetShared();
    delete m_connection;
}

cEmpresa *TestDatabase::empresa(qint16 code)
{
    m_companies << cEmpresa::Cargar(m_connection, code);
    statements.clear();
    return m_companies.last();
}

QVariant TestDatabase::scalar(const QString &sql) const
{
    QSqlQuery q(m_connection->database());
    if (!q.exec(m_connection->adapt(sql)) || !q.next())
        return QVariant();
    return q.value(0);
}

QStringList TestDatabase::rows(const QString &sql) const
{
    QSqlQuery q(m_connection->database());
    QStringList out;
    if (!q.exec(m_connection->adapt(sql)))
        return {QStringLiteral("ERROR: ") + q.lastError().text()};
    while (q.next()) {
        QStringList cells;
        for (int i = 0; i < q.record().count(); ++i)
            cells << (q.value(i).isNull() ? QStringLiteral("NULL") : q.value(i).toString());
        out << cells.join(u'|');
    }
    return out;
}

QStringList TestDatabase::rows(const QAbstractItemModel &model)
{
    QStringList out;
    for (int r = 0; r < model.rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < model.columnCount(); ++c)
            cells << model.index(r, c).data().toString();
        out << cells.join(u'|');
    }
    return out;
}

QString TestDatabase::fingerprint() const
{
    const QByteArray all = snapshot().join(u'\n').toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex());
}

QStringList TestDatabase::snapshot() const
{
    QStringList out;
    for (const QString &table : rows(QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name"))) {
        QStringList all = rows(QStringLiteral("SELECT * FROM %1").arg(table));
        all.sort();
        for (const QString &row : std::as_const(all))
            out << table + u'|' + row;
    }
    return out;
}

int TestDatabase::changedRows(const QStringList &before, const QStringList &after)
{
    const std::multiset<QString> old(before.begin(), before.end()), now(after.begin(), after.end());
    QStringList gone, added;
    std::set_difference(old.begin(), old.end(), now.begin(), now.end(), std::back_inserter(gone));
    std::set_difference(now.begin(), now.end(), old.begin(), old.end(), std::back_inserter(added));
    return int(qMax(gone.size(), added.size()));
}

} // namespace Varnel_Controles::Testing
