// Benchmark databases, generated once and kept next to the benchmark binaries.
#pragma once

#include "DemoData.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTextStream>

namespace bench {

/// Path of a generated database of the given size (created when missing).
/// `generationSeconds` receives the generator's time when it had to run.
inline QString database(int articulos, int clientes, int proveedores, double *generationSeconds = nullptr)
{
    const QString dir = QCoreApplication::applicationDirPath() + QStringLiteral("/bench-data");
    QDir().mkpath(dir);
    const QString path = QStringLiteral("%1/a%2_c%3_p%4.db").arg(dir).arg(articulos).arg(clientes).arg(proveedores);
    if (!QFileInfo::exists(path)) {
        QTextStream(stdout) << "generating " << path << " …\n";
        Varnel_Controles::Demo::Options o;
        o.articulos = articulos;
        o.clientes = clientes;
        o.proveedores = proveedores;
        QElapsedTimer t;
        t.start();
        Varnel_Controles::Demo::generate(path + QStringLiteral(".tmp"), o);
        QFile::remove(path + QStringLiteral(".tmp-wal"));
        QFile::remove(path + QStringLiteral(".tmp-shm"));
        QFile::rename(path + QStringLiteral(".tmp"), path);
        if (generationSeconds)
            *generationSeconds = t.elapsed() / 1000.0;
    }
    return path;
}

} // namespace bench
