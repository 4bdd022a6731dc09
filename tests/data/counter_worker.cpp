// Takes numbers from the company-1 counter row through the locked read, printing each.
// Usage: kd_counter_worker DATABASE COUNT
#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/Recordset.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout), err(stderr);
    try {
        // Workers save back to back, far more often than clerks do: they wait their turn.
        Conexion::setDefaultBusyTimeout(60000);
        Conexion *c = Conexion::open(QStringLiteral("sqlite:") + QString::fromLocal8Bit(argv[1]));
        const int count = QByteArray(argv[2]).toInt();
        for (int i = 0; i < count; ++i) {
            Recordset rs;
            rs.openLocked(QStringLiteral("SELECT * FROM Contador_CBarras WHERE Cod_Empresa=1"), c,
                          QStringLiteral("Contador_CBarras"), {QStringLiteral("Cod_Empresa")});
            const qint64 next = rs.field(QStringLiteral("Cod_Barras")).toLongLong() + 1;
            rs.setField(QStringLiteral("Cod_Barras"), QString::number(next));
            rs.update();
            rs.close();
            out << next << "\n";
        }
        delete c;
    } catch (const DbError &e) {
        err << e.Description() << "\n";
        return 1;
    }
    return 0;
}
