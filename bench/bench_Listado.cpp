// A printed list to PDF at 10,000 and 100,000 rows: the time per 1,000 rows at both sizes
// (their ratio shows the cost grows with the rows, not faster), against QPainter::drawText of
// the same cells onto a QPdfWriter, and the process's peak memory after each size.
#include "BenchUtil.h"

#include <Varnel_Controles/modListados.h>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

using namespace Varnel_Controles;

namespace {

QStringList row(int i)
{
    return {QString::number(i), QStringLiteral("TORNILLO ALLEN DE CABEZA CILÍNDRICA %1 MM").arg(i % 90),
            QStringLiteral("REF-%1").arg(i * 7), QString::number(i % 1000 * 1.25, 'f', 2).replace('.', ','),
            QString::number(i % 37)};
}

// Rows made as they are read, as a recordset would give them: nothing is held.
clsListado lista(int rows)
{
    clsListado l(QStringLiteral("Artículos"));
    l.setCriterio(QStringLiteral("Desc: TORN* Prov: Ref:"));
    l.AgregarColumna(QStringLiteral("Código"), 800);
    l.AgregarColumna(QStringLiteral("Descripción"), 3200);
    l.AgregarColumna(QStringLiteral("Ref. Princip."), 1400);
    l.AgregarColumna(QStringLiteral("Tarifa 1"), 1000, RightJustify);
    l.AgregarColumna(QStringLiteral("Stock"), 800, RightJustify);
    auto next = std::make_shared<int>(0);
    l.setFuente([next] { *next = 0; }, [next, rows](QStringList &fila) {
        if (*next >= rows)
            return false;
        fila = row(++*next);
        return true;
    });
    return l;
}

// The baseline: the same cells drawn one line per row at fixed places, 60 rows a page.
void plain(const QString &path, int rows)
{
    QPdfWriter writer(path);
    QPainter painter(&writer);
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 8));
    const int line = writer.resolution() / 6;
    const int x[] = {0, 700, 3500, 4800, 5900};
    for (int i = 1; i <= rows; ++i) {
        if (i > 1 && i % 60 == 1)
            writer.newPage();
        const QStringList cells = row(i);
        for (int c = 0; c < cells.size(); ++c)
            painter.drawText(x[c], line * (1 + (i - 1) % 60), cells[c]);
    }
}

double peakMB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &l : status.readAll().split('\n'))
        if (l.startsWith("VmHWM:"))
            return l.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("listado.pdf"));
    QTextStream out(stdout);
    const double start = peakMB();
    modListados::Imprimir(lista(1000), kdFichero, QString(), pdf); // warm-up: fonts, plugins

    qint64 perThousand[2] = {}, total10k = 0;
    const int sizes[2] = {10000, 100000};
    for (int s = 0; s < 2; ++s) {
        const int rows = sizes[s];
        const qint64 ns = bench::best(s == 0 ? 3 : 1, [&] { modListados::Imprimir(lista(rows), kdFichero, QString(), pdf); });
        perThousand[s] = ns / (rows / 1000);
        if (s == 0)
            total10k = ns;
        out << rows << " rows to PDF: " << QString::number(ns / 1e9, 'f', 2) << " s, "
            << QString::number(perThousand[s] / 1e6, 'f', 1) << " ms per 1,000 rows, "
            << QFileInfo(pdf).size() / 1024 << " KiB\n";
        out << "  peak memory (VmHWM) after it: " << QString::number(peakMB(), 'f', 1) << " MB (at start "
            << QString::number(start, 'f', 1) << " MB)\n";
        out.flush();
    }
    out << "time per 1,000 rows, 100,000 against 10,000: ratio "
        << QString::number(double(perThousand[1]) / double(perThousand[0]), 'f', 2) << " (at most 1.2)\n";
    out.flush();
    const qint64 baseline = bench::best(3, [&] { plain(pdf, sizes[0]); });
    bench::report(QStringLiteral("10,000-row list per 1,000 rows (in us)"), total10k,
                  QStringLiteral("bare drawText of the same cells to QPdfWriter"), baseline, sizes[0] / 1000);
    return 0;
}
