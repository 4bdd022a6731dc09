// The demo host application. Without arguments it opens the screens in a window;
// with --screenshot DIR it renders each screen to a PNG file and exits.
#include "DemoWindow.h"
#include "PantallaEntrada.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kd_demo"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Pantallas de ejemplo de Varnel_Controles"));
    parser.addHelpOption();
    QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                  QStringLiteral("Escribe un PNG por pantalla en DIR y termina."),
                                  QStringLiteral("DIR"));
    parser.addOption(screenshot);
    parser.process(app);

    DemoWindow window;
    window.addScreen(new PantallaEntrada);

    if (parser.isSet(screenshot)) {
        const QStringList files = window.writeScreenshots(parser.value(screenshot));
        QTextStream out(stdout);
        for (const QString &f : files)
            out << f << "\n";
        return files.isEmpty() ? 1 : 0;
    }
    window.show();
    return app.exec();
}
