// Opens a database, reads it and tries one write, printing what the clerk would see.
// Usage: kd_readonly_worker DATABASE
#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/Recordset.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    auto countMarcas = [](Conexion *c) {
        Recordset rs;
        rs.open(QStringLiteral("SELECT COUNT(*) AS N FROM Marcas"), c);
        return rs.text(QStringLiteral("N"));
    };
    try {
        Conexion *c = Conexion::open(QStringLiteral("sqlite:") + QString::fromLocal8Bit(argv[1]));
        out << "solo lectura: " << int(c->isReadOnly()) << "\n" << "marcas: " << countMarcas(c) << "\n";
        try {
            c->execute(QStringLiteral("DELETE FROM Marcas"));
        } catch (const DbError &e) {
            out << e.Description() << "\n";
        }
        out << "marcas: " << countMarcas(c) << "\n";
        delete c;
    } catch (const DbError &e) {
        out << e.Description() << "\n";
        return 1;
    }
    return 0;
}
