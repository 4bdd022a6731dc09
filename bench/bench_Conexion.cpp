// The data layer's cost for a code lookup (recordset open, field, close, trace signal,
// dialect adaptation) against the same query through the raw Qt driver; the time the
// generator takes for 1,000,000 articles; and the wait for a database another workstation
// holds locked, against the configured wait.
#include "BenchData.h"
#include "BenchUtil.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/SqlText.h>

#include <QCoreApplication>
#include <QFile>
#include <QSqlQuery>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);

    double seconds = -1;
    const QString path = bench::database(1000000, 100000, 100000, &seconds);
    if (seconds >= 0)
        out << "generator, 1,000,000 articles (100,000 customers, 100,000 suppliers): "
            << QString::number(seconds, 'f', 1) << " s\n";
    else
        out << "generator: database already generated (delete " << path << " to time it again)\n";

    Conexion *c = Conexion::open(QStringLiteral("sqlite:") + path);
    const int lookups = 20000;
    auto statement = [](int i) {
        return QStringLiteral("SELECT Nombre FROM Proveedores WHERE Cod_Empresa =") + SqlText::empresa(1)
            + QStringLiteral(" AND Codigo =") + SqlText::codigo(QString::number(1 + (i * 7919) % 100000));
    };
    QStringList adapted;
    for (int i = 0; i < lookups; ++i)
        adapted << c->adapt(statement(i));

    QString sink;
    const qint64 layer = bench::best(5, [&] {
        for (int i = 0; i < lookups; ++i) {
            Recordset rs;
            rs.open(statement(i), c);
            if (!rs.eof())
                sink = rs.text(QStringLiteral("Nombre"));
            rs.close();
        }
    });
    const qint64 raw = bench::best(5, [&] { bench::rawQueries(c->database(), adapted); });
    bench::report(QStringLiteral("code lookup through the layer (100,000 suppliers)"), layer,
                  QStringLiteral("raw QSqlQuery, same adapted text"), raw, lookups);
    delete c;

    // A save while another workstation holds the write lock: how long until the clerk's
    // message, against the configured wait.
    out.flush();
    const QString small = bench::database(10, 10, 10);
    Conexion *other = Conexion::open(QStringLiteral("sqlite:") + small);
    Conexion *clerk = Conexion::open(QStringLiteral("sqlite:") + small);
    other->beginTrans();
    QString message;
    const qint64 locked = bench::best(1, [&] {
        try {
            clerk->execute(QStringLiteral("UPDATE Marcas SET Nombre = Nombre WHERE Codigo = 1"));
        } catch (const DbError &e) {
            message = e.Description();
        }
    });
    other->rollbackTrans();
    delete clerk;
    delete other;
    out << "locked database: \"" << message << "\"\n";
    out.flush();
    bench::report(QStringLiteral("locked database, time to the clerk's message"), locked,
                  QStringLiteral("configured wait"), qint64(Conexion::defaultBusyTimeout()) * 1000000);
    return 0;
}
