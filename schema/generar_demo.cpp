// kd_generar_demo FILE [--articulos N] [--clientes N] [--proveedores N] [--semilla N]
// Writes the demo company database to FILE (replacing it).
#include "DemoData.h"

#include <Varnel_Controles/DbError.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Genera la base de datos de demostración."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("fichero"), QStringLiteral("Base de datos SQLite que se crea."));
    const QCommandLineOption articulos(QStringLiteral("articulos"), QStringLiteral("Artículos de la empresa 1."), QStringLiteral("N"), QStringLiteral("3000"));
    const QCommandLineOption clientes(QStringLiteral("clientes"), QStringLiteral("Clientes de la empresa 1."), QStringLiteral("N"), QStringLiteral("400"));
    const QCommandLineOption proveedores(QStringLiteral("proveedores"), QStringLiteral("Proveedores de la empresa 1."), QStringLiteral("N"), QStringLiteral("150"));
    const QCommandLineOption semilla(QStringLiteral("semilla"), QStringLiteral("Semilla de los datos."), QStringLiteral("N"), QStringLiteral("20261121"));
    parser.addOptions({articulos, clientes, proveedores, semilla});
    parser.process(app);
    QTextStream out(stdout), err(stderr);
    if (parser.positionalArguments().size() != 1) {
        err << "Indique el fichero de la base de datos.\n";
        return 2;
    }
    Varnel_Controles::Demo::Options options;
    bool ok1, ok2, ok3, ok4;
    options.articulos = parser.value(articulos).toInt(&ok1);
    options.clientes = parser.value(clientes).toInt(&ok2);
    options.proveedores = parser.value(proveedores).toInt(&ok3);
    options.semilla = parser.value(semilla).toULongLong(&ok4);
    if (!ok1 || !ok2 || !ok3 || !ok4 || options.articulos < 10 || options.clientes < 10 || options.proveedores < 5
        || options.articulos > 5000000) {
        err << "Valores no válidos: artículos de 10 a 5.000.000, clientes desde 10, proveedores desde 5.\n";
        return 2;
    }
    QElapsedTimer timer;
    timer.start();
    try {
        Varnel_Controles::Demo::generate(parser.positionalArguments().first(), options,
                                         [&](const QString &line) { out << line << "\n"; out.flush(); });
    } catch (const Varnel_Controles::DbError &e) {
        err << e.Description() << "\n";
        return 1;
    }
    out << "Hecho en " << QString::number(timer.elapsed() / 1000.0, 'f', 1) << " s: "
        << parser.positionalArguments().first() << "\n";
    return 0;
}
