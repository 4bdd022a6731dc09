// Issues automatic barcodes for consecutive articles of company 1 from its own connection,
// storing each new one as the article's automatic barcode in the transaction that issued it (as
// the article's save does), and prints them.
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
    if (argc != 4)
        return 2;
    try {
        Conexion::setDefaultBusyTimeout(60000); // workers save back to back, far more often than clerks do
        const std::unique_ptr<Conexion> c(Conexion::open(QStringLiteral("sqlite:") + QString::fromLocal8Bit(argv[1])));
        cEmpresa empresa(1);
        clsArticulo_CBarra barcode;
        barcode.setConexion(c.get());
        barcode.setCEmpresa(&empresa);
        barcode.setAutomatico(true);
        qint32 owner = 0;
        QString name;
        qint16 units = 0;
        bool principal = false;
        const int first = QByteArray(argv[3]).toInt();
        for (int article = first; article < first + QByteArray(argv[2]).toInt(); ++article) {
            barcode.setCod_Articulo(article);
            c->beginTrans();
            const QString code = barcode.CrearAuto();
            if (!barcode.Existe(code, owner, name, units, principal)) {
                barcode.setCod_Barras(code);
                barcode.Insertar();
            }
            c->commitTrans();
            QTextStream(stdout) << code << "\n";
        }
    } catch (const DbError &e) {
        QTextStream(stderr) << e.Source() << ": " << e.Description() << "\n";
        return 1;
    }
    return 0;
}
