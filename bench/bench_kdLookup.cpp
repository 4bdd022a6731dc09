// Enter-to-name: a supplier code typed into kdProveedor and Enter pressed (validation, lookup,
// label), against the raw driver running the same statement, on 100,000 suppliers.
#include "BenchData.h"
#include "BenchUtil.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/kdProveedor.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSqlQuery>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Conexion *c = Conexion::open(QStringLiteral("sqlite:") + bench::database(10, 10, 100000));
    Conexion::setShared(c);
    cEmpresa empresa(1);
    kdProveedor lookup;
    lookup.setCEmpresa(&empresa);
    QWidget *box = lookup.findChild<QLineEdit *>(QStringLiteral("txtCodigo"));
    const int lookups = 5000;
    auto code = [](int i) { return QString::number(1 + (i * 7919) % 100000); };
    QStringList adapted;
    for (int i = 0; i < lookups; ++i)
        adapted << c->adapt(kdProveedor::statement(1, code(i)));

    const qint64 control = bench::best(5, [&] {
        for (int i = 0; i < lookups; ++i) {
            lookup.setText(code(i));
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
            QApplication::sendEvent(box, &enter);
        }
    });
    const qint64 raw = bench::best(5, [&] { bench::rawQueries(c->database(), adapted); });
    if (lookup.Nombre().isEmpty())
        return 1;
    bench::report(QStringLiteral("kdProveedor, Enter to name (100,000 suppliers)"), control,
                  QStringLiteral("raw driver, same statement"), raw, lookups);
    return 0;
}
