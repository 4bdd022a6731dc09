// Automatic barcodes per second: one process issuing codes alone, and four processes issuing
// them at once against the same database (each code taken under the counter's lock and stored
// in the same transaction).
#include "BenchUtil.h"
#include "DemoData.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

namespace {

double codesPerSecond(int processes, int codesEach)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("auto.db"));
    Varnel_Controles::Demo::createEmpty(path);
    QElapsedTimer timer;
    timer.start();
    QList<QProcess *> workers;
    for (int p = 0; p < processes; ++p) {
        auto *w = new QProcess;
        w->start(QStringLiteral(KD_CREARAUTO_WORKER), {path, QString::number(codesEach), QString::number(100000 * (p + 1))});
        workers << w;
    }
    for (QProcess *w : workers) {
        w->waitForFinished(-1);
        if (w->exitCode() != 0)
            qFatal("worker failed: %s", w->readAllStandardError().constData());
        delete w;
    }
    return processes * codesEach / (timer.nsecsElapsed() / 1e9);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int codes = 400;
    const double one = codesPerSecond(1, codes);
    const double four = codesPerSecond(4, codes);
    QTextStream(stdout) << "automatic codes: one process " << QString::number(one, 'f', 0) << "/s; four processes at once "
                        << QString::number(four, 'f', 0) << "/s in all; ratio four/one "
                        << QString::number(four / one, 'f', 2) << "\n";
    return 0;
}
