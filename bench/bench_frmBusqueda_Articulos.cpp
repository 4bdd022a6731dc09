// The article searches on big catalogues, each dialog shown at its own size:
// - the first page of a description-prefix search in the first layout on 10,000 and on
//   1,000,000 articles (the cost must not grow with the catalogue), also in extended mode (the
//   long description searched too) and for a prefix that finds nothing;
// - the second layout's first screen of every article (a million rows) against the first
//   layout's first page, on 1,000,000 articles;
// - the memory the second layout holds after that first screen, against reading every row.
// It also prints the plans SQLite follows for the prefix searches of both layouts.
#include "BenchData.h"
#include "BenchUtil.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/frmBusqueda_Articulos_1.h>
#include <Varnel_Controles/frmBusqueda_Articulos_2.h>

#include "search/FiltroArticulos.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTableView>

using namespace Varnel_Controles;

namespace {

const QString kPrefix = QStringLiteral("TORNILLO");

// VmRSS or VmHWM of this process, in MB.
double memory(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(qstrlen(field) + 1).trimmed().split(' ').value(0).toDouble() / 1024.0;
    return 0;
}

struct Catalogue
{
    Conexion *conexion;
    cEmpresa empresa{1};
    explicit Catalogue(const QString &path) : conexion(Conexion::open(QStringLiteral("sqlite:") + path))
    {
        Conexion::resetShared();
        Conexion::setShared(conexion);
    }
    ~Catalogue()
    {
        Conexion::resetShared();
        delete conexion;
    }
};

template <typename D>
void prepare(D &dialog, cEmpresa *empresa, const QString &descripcion)
{
    dialog.setCEmpresa(empresa);
    dialog.show();
    QApplication::processEvents();
    dialog.setBusqueda_Descripcion(descripcion);
    dialog.Recuperar_Registros(); // warms the cache
}

qint64 firstPage(const QString &path, const QString &prefix = kPrefix, bool extendido = false)
{
    Catalogue c(path);
    frmBusqueda_Articulos_1 dialog;
    dialog.setExtendido(extendido);
    prepare(dialog, &c.empresa, prefix);
    return bench::best(9, [&] { dialog.Recuperar_Registros(); });
}

void printPlans(Conexion *c)
{
    QTextStream out(stdout);
    const QList<QPair<QString, FiltroArticulos>> filters{{QStringLiteral("description"), {.descripcion = kPrefix}},
                                                         {QStringLiteral("code"), {.codigo = QStringLiteral("12")}},
                                                         {QStringLiteral("reference"), {.referencia = QStringLiteral("ABA")}},
                                                         {QStringLiteral("supplier"), {.proveedor = 3}}};
    for (int layout : {1, 2}) {
        for (const auto &[name, filter] : filters) {
            const QString sql = layout == 1
                ? frmBusqueda_Articulos_1::statement(1, filter.condiciones(FiltroArticulos::Primera))
                : frmBusqueda_Articulos_2::statement(1, 1, {1, 2, 3}, filter.condiciones(FiltroArticulos::Segunda));
            QSqlQuery q(c->database());
            q.exec(QStringLiteral("EXPLAIN QUERY PLAN ") + c->adapt(sql));
            QStringList steps; // the joined tables' lookups left out, repeated ranges counted
            int repeats = 1;
            while (q.next()) {
                const QString step = q.value(3).toString();
                if (step.contains(QLatin1String("LEFT-JOIN")) || step.startsWith(QLatin1String("BLOOM"))
                    || QRegularExpression(QStringLiteral("^INDEX \\d+$")).match(step).hasMatch())
                    continue;
                if (!steps.isEmpty() && steps.last().startsWith(step)) {
                    steps.last() = step + QStringLiteral(" ×%1").arg(++repeats);
                    continue;
                }
                repeats = 1;
                steps << step;
            }
            out << "plan, layout " << layout << ", " << name << " prefix: " << steps.join(QStringLiteral("; ")) << "\n";
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTextStream out(stdout);
    const QString small = bench::database(10000, 1000, 1000);
    const QString large = bench::database(1000000, 100000, 100000);

    const qint64 page10k = firstPage(small);
    const qint64 page1m = firstPage(large);
    bench::report(QStringLiteral("layout 1, first page of \"TORNILLO\", 1,000,000 articles"), page1m,
                  QStringLiteral("10,000 articles"), page10k);
    for (const QString &prefix : {kPrefix, QStringLiteral("ZZ")}) // the long description too; ZZ finds nothing
        bench::report(QStringLiteral("layout 1 extended, first page of \"%1\", 1,000,000 articles").arg(prefix),
                      firstPage(large, prefix, true), QStringLiteral("10,000 articles"), firstPage(small, prefix, true));

    Catalogue c(large);
    printPlans(c.conexion);
    frmBusqueda_Articulos_1 first;
    prepare(first, &c.empresa, QString());
    const qint64 everyArticle1 = bench::best(9, [&] { first.Recuperar_Registros(); });
    const double before = memory("VmRSS:");
    frmBusqueda_Articulos_2 second;
    prepare(second, &c.empresa, QString());
    const qint64 screen = bench::best(9, [&] { second.Recuperar_Registros(); });
    const int rows = second.findChild<QTableView *>(QStringLiteral("vsListado"))->model()->rowCount();
    const double afterScreen = memory("VmRSS:");
    bench::report(QStringLiteral("layout 2, first screen of every article (1,000,000 rows)"), screen,
                  QStringLiteral("layout 1, first page of \"TORNILLO\""), page1m);
    bench::report(QStringLiteral("layout 2, first screen of every article"), screen,
                  QStringLiteral("layout 1, first page of every article"), everyArticle1);
    second.setBusqueda_Descripcion(kPrefix);
    const qint64 prefixScreen = bench::best(3, [&] { second.Recuperar_Registros(); });
    bench::report(QStringLiteral("layout 2, first screen of \"TORNILLO\" (sorted by code)"), prefixScreen,
                  QStringLiteral("layout 1, first page of \"TORNILLO\""), page1m);

    second.setBusqueda_Descripcion(QString());
    second.Recuperar_Registros();
    QElapsedTimer all;
    all.start();
    QKeyEvent ctrlEnd(QEvent::KeyPress, Qt::Key_End, Qt::ControlModifier);
    QApplication::sendEvent(second.findChild<QTableView *>(QStringLiteral("vsListado")), &ctrlEnd);
    const qint64 readAll = all.nsecsElapsed();
    const int allRows = second.findChild<QTableView *>(QStringLiteral("vsListado"))->model()->rowCount();
    const double afterAll = memory("VmRSS:");
    out << "layout 2 memory: " << QString::number(afterScreen - before, 'f', 1) << " MB for the first screen (" << rows
        << " rows held); " << QString::number(afterAll - before, 'f', 1) << " MB once Ctrl+End read all " << allRows
        << " rows (" << QString::number(readAll / 1e9, 'f', 1) << " s); ratio "
        << QString::number((afterAll - before) / qMax(0.1, afterScreen - before), 'f', 0) << "; VmRSS "
        << QString::number(afterScreen, 'f', 1) << " MB after the first screen, VmHWM "
        << QString::number(memory("VmHWM:"), 'f', 1) << " MB at the end\n";
    return 0;
}
