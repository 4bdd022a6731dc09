// Opens a database, counts its brands, tries to delete them and counts them again, printing
// what the clerk would see. Usage: kd_readonly_worker DATABASE
#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/Recordset.h"

#include <QCoreApplication>
#include <QTextStream>
#include <memory>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const auto brands = [](Conexion *c) {
        Recordset rs;
        rs.open(QStringLiteral("SELECT COUNT(*) AS N FROM Marcas"), c);
        return "marcas: " + rs.text(QStringLiteral("N")) + "\n";
    };
    try {
        const std::unique_ptr<Conexion> c(Conexion::open("sqlite:" + QString::fromLocal8Bit(argv[1])));
        out << "solo lectura: " << int(c->isReadOnly()) << "\n" << brands(c.get());
        try {
            c->execute(QStringLiteral("DELETE FROM Marcas"));
        } catch (const DbError &e) {
            out << e.Description() << "\n";
        }
        out << brands(c.get());
    } catch (const DbError &e) {
        out << e.Description() << "\n";
    }
    return 0;
}
