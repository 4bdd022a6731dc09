#include "TestDatabase.h"

#include "DemoData.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QMap>
#include <memory>
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
        QString text;
        for (const QString &line : QString::fromUtf8(seed.readAll()).split(u'\n'))
            if (!line.trimmed().startsWith(QLatin1String("--")))
                text += line + u'\n';
        QSqlQuery q(connection->database());
        for (const QString &statement : text.split(QStringLiteral(";\n")))
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
    if (demoArticles > 0) {
        Demo::Options o;
        o.articulos = demoArticles;
        Demo::generate(m_path, o);
    } else if (!QFile::copy(seededTemplate(), m_path)) {
        throw std::runtime_error("seed: the seeded database could not be copied");
    }
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
    auto *company = cEmpresa::Cargar(m_connection, code);
    m_companies << company;
    statements.clear();
    return company;
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

QString TestDatabase::fingerprint() const
{
    return QString::fromLatin1(QCryptographicHash::hash(snapshot().join(u'\n').toUtf8(), QCryptographicHash::Sha1).toHex());
}

QStringList TestDatabase::snapshot() const
{
    QSqlQuery tables(m_connection->database());
    tables.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name"));
    QStringList out;
    while (tables.next()) {
        const QString table = tables.value(0).toString();
        QStringList all = rows(QStringLiteral("SELECT * FROM %1").arg(table));
        all.sort();
        for (const QString &row : std::as_const(all))
            out << table + u'|' + row;
    }
    return out;
}

int TestDatabase::changedRows(const QStringList &before, const QStringList &after)
{
    QMap<QString, int> count;
    for (const QString &row : before)
        ++count[row];
    for (const QString &row : after)
        --count[row];
    int gone = 0, added = 0;
    for (int n : std::as_const(count))
        (n > 0 ? gone : added) += qAbs(n);
    return qMax(gone, added);
}

} // namespace Varnel_Controles::Testing
