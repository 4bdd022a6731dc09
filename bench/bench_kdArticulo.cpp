// Scan-to-description: a 13-digit barcode typed into kdArticulo and Enter pressed (the kind of
// entry decided, the barcode looked up, the article looked up, its description shown), against
// the raw driver running the same two statements, on 1,000,000 articles.
#include "BenchData.h"
#include "BenchUtil.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/kdArticulo.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSqlQuery>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Conexion *c = Conexion::open(QStringLiteral("sqlite:") + bench::database(1000000, 100000, 100000));
    Conexion::setShared(c);
    cEmpresa empresa(1);
    kdArticulo lookup;
    lookup.setCEmpresa(&empresa);
    QWidget *box = lookup.findChild<QLineEdit *>(QStringLiteral("txtCodigo"));

    // Principal barcodes of articles spread over the whole company, and the same statements.
    QStringList barcodes, adapted;
    QSqlQuery q(c->database());
    q.exec(QStringLiteral("SELECT Cod_Barras, Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Principal = 1 "
                          "AND Cod_Articulo % 197 = 0 AND LENGTH(Cod_Barras) = 13 LIMIT 5000"));
    while (q.next()) {
        barcodes << q.value(0).toString();
        adapted << c->adapt(QStringLiteral("SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Barras ='")
                            + barcodes.last() + u'\'')
                << c->adapt(kdArticulo::statement(1, q.value(1).toString()));
    }
    q.finish();
    if (barcodes.isEmpty())
        return 1;

    const qint64 control = bench::best(5, [&] {
        for (const QString &barcode : std::as_const(barcodes)) {
            lookup.setText(barcode);
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
            QApplication::sendEvent(box, &enter);
        }
    });
    const qint64 raw = bench::best(5, [&] { bench::rawQueries(c->database(), adapted); });
    if (!lookup.Existe() || lookup.Nombre().isEmpty())
        return 1;
    bench::report(QStringLiteral("kdArticulo, barcode scanned to description (1,000,000 articles)"), control,
                  QStringLiteral("raw driver, same statements"), raw, int(barcodes.size()));
    return 0;
}
