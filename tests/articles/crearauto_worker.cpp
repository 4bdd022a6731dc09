// Issues automatic barcodes for consecutive articles of company 1 from its own connection,
// storing each new one as the article's automatic barcode in the same transaction (as the
// article's save does), and prints them.
// Usage: kd_crearauto_worker DATABASE COUNT FIRST_ARTICLE
#include "articles/clsArticulo_CBarra.h"
#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/cEmpresa.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout), err(stderr);
    if (argc != 4) {
        err << "uso: kd_crearauto_worker BASE CANTIDAD PRIMER_ARTICULO\n";
        return 2;
    }
    try {
        // Workers save back to back, far more often than clerks do: they wait their turn.
        Conexion::setDefaultBusyTimeout(60000);
        Conexion *c = Conexion::open(QStringLiteral("sqlite:") + QString::fromLocal8Bit(argv[1]));
        cEmpresa empresa(1);
        clsArticulo_CBarra barcode;
        barcode.setConexion(c);
        barcode.setCEmpresa(&empresa);
        const int count = QByteArray(argv[2]).toInt();
        const int first = QByteArray(argv[3]).toInt();
        for (int i = 0; i < count; ++i) {
            barcode.setCod_Articulo(first + i);
            c->beginTrans();
            const QString code = barcode.CrearAuto();
            qint32 article = 0;
            QString name;
            qint16 units = 0;
            bool principal = false;
            if (!barcode.Existe(code, article, name, units, principal)) {
                barcode.setCod_Barras(code);
                barcode.setPrincipal(false);
                barcode.setAutomatico(true);
                barcode.setUnidades(1);
                barcode.Insertar();
            }
            c->commitTrans();
            out << code << "\n";
        }
        out.flush();
        delete c;
    } catch (const DbError &e) {
        err << e.Source() << ": " << e.Description() << "\n";
        return 1;
    }
    return 0;
}
