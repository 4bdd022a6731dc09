// Time to the first page of a supplier search by prefix: on 10,000 and on 1,000,000
// suppliers (how the cost grows with the table), and against the raw driver fetching the
// same 14 rows of the same statement; and a filter of 32,000 letters read against every
// supplier, against an ordinary one.
#include "BenchData.h"
#include "BenchUtil.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/frmBusqueda_Proveedores.h>

#include <QApplication>
#include <QSqlQuery>

using namespace Varnel_Controles;

namespace {

struct Timing { qint64 dialog; qint64 raw; };

Timing measure(const QString &path, const QString &prefix)
{
    Conexion *c = Conexion::open(QStringLiteral("sqlite:") + path);
    Conexion::resetShared();
    Conexion::setShared(c);
    frmBusqueda_Proveedores dialog;
    dialog.setEmpresa(1);
    const QString adapted = c->adapt(frmBusqueda_Proveedores::statement(1, prefix));
    dialog.Recuperar_Registros(prefix); // warm the cache
    Timing t;
    t.dialog = bench::best(7, [&] { dialog.Recuperar_Registros(prefix); });
    t.raw = bench::best(7, [&] {
        QSqlQuery q(c->database());
        q.setForwardOnly(true);
        q.exec(adapted);
        for (int i = 0; i < 14 && q.next(); ++i)
            q.value(0);
    });
    delete c;
    return t;
}

// A contains-filter finds nothing, so the search reads every supplier: "*" and 32,000
// letters against a filter of ordinary length.
Timing measureLongFilter(const QString &path)
{
    Conexion *c = Conexion::open(QStringLiteral("sqlite:") + path);
    Conexion::resetShared();
    Conexion::setShared(c);
    frmBusqueda_Proveedores dialog;
    dialog.setEmpresa(1);
    const QString longFilter = u'*' + QString(32000, u'Q');
    Timing t;
    t.raw = bench::best(3, [&] { dialog.Recuperar_Registros(QStringLiteral("*QQQQQQQQ")); });
    t.dialog = bench::best(3, [&] { dialog.Recuperar_Registros(longFilter); });
    delete c;
    return t;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString prefix = QStringLiteral("DISTRIBUCIONES M");
    const Timing small = measure(bench::database(10, 10, 10000), prefix);
    const Timing large = measure(bench::database(10, 10, 1000000), prefix);
    bench::report(QStringLiteral("first page, 1,000,000 suppliers"), large.dialog,
                  QStringLiteral("first page, 10,000 suppliers"), small.dialog);
    bench::report(QStringLiteral("dialog search, 10,000 suppliers"), small.dialog,
                  QStringLiteral("raw driver, same 14 rows"), small.raw);
    bench::report(QStringLiteral("dialog search, 1,000,000 suppliers"), large.dialog,
                  QStringLiteral("raw driver, same 14 rows"), large.raw);
    const Timing scan = measureLongFilter(bench::database(10, 10, 1000000));
    bench::report(QStringLiteral("filter \"*\" + 32,000 letters, 1,000,000 suppliers"), scan.dialog,
                  QStringLiteral("filter \"*QQQQQQQQ\", same suppliers"), scan.raw);
    return 0;
}
