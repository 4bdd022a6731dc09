// The demo host application. Without arguments it opens the screens in a window;
// with --screenshot DIR it renders each screen to a PNG file and exits.
// The embedded demo database is created on first run.
#include "DemoWindow.h"
#include "PantallaAltaArticulos.h"
#include "PantallaArticulos.h"
#include "PantallaBusquedas.h"
#include "PantallaCodigosBarras.h"
#include "PantallaEntrada.h"
#include "PantallaListado.h"
#include "PantallaRangos.h"
#include "PantallaVentas.h"

#include "DemoData.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/cEmpresa.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTextStream>
#include <QTranslator>
#include <memory>

using namespace Varnel_Controles;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kd_demo"));
    QTextStream out(stdout), err(stderr);
    // Qt's own texts (the buttons of the message boxes, the print dialogs) in Spanish, from
    // Debian's qt6-translations-l10n.
    QTranslator qtSpanish;
    if (qtSpanish.load(QLocale(QLocale::Spanish, QLocale::Spain), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtSpanish);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Pantallas de ejemplo de Varnel_Controles"));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Escribe un PNG por pantalla en DIR y termina."),
                                        QStringLiteral("DIR"));
    const QCommandLineOption database(QStringLiteral("db"), QStringLiteral("Base de datos SQLite de demostración."),
                                      QStringLiteral("FICHERO"),
                                      QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                                          + QStringLiteral("/empresa.db"));
    parser.addOptions({screenshot, database});
    parser.process(app);

    const QString path = parser.value(database);
    // Both go before the application object: Qt's register of connections goes with it, and a
    // connection still open then would never be closed.
    std::unique_ptr<Conexion> owner;
    std::unique_ptr<cEmpresa> company;
    Conexion *conexion = nullptr;
    cEmpresa *empresa = nullptr;
    try {
        if (!QFileInfo::exists(path)) {
            out << "Creando la base de datos de demostración en " << path << "…\n";
            out.flush();
            QDir().mkpath(QFileInfo(path).absolutePath());
            Demo::generate(path);
        }
        owner.reset(conexion = Conexion::open(QStringLiteral("sqlite:") + path));
        company.reset(empresa = cEmpresa::Cargar(conexion, 1));
        Conexion::setShared(conexion); // the library-wide connection of every control and dialog
    } catch (const DbError &e) {
        err << e.Description() << "\n";
        return 1;
    }

    DemoWindow window(conexion, empresa);
    window.addScreen(new PantallaEntrada);
    window.addScreen(new PantallaBusquedas(empresa));
    window.addScreen(new PantallaArticulos(conexion, empresa, path));
    window.addScreen(new PantallaRangos(empresa));
    window.addScreen(new PantallaCodigosBarras(conexion, empresa));
    window.addScreen(new PantallaAltaArticulos(conexion, empresa));
    window.addScreen(new PantallaListado(empresa));
    window.addScreen(new PantallaVentas(conexion, empresa));

    if (parser.isSet(screenshot)) {
        const QStringList files = window.writeScreenshots(parser.value(screenshot));
        for (const QString &f : files)
            out << f << "\n";
        return files.isEmpty() ? 1 : 0;
    }
    window.show();
    return app.exec();
}
