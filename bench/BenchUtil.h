// Timing helpers shared by the benchmarks: best of several rounds, printed as a ratio.
#pragma once

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
#include <QString>
#include <QTextStream>
#include <algorithm>
#include <functional>

namespace bench {

/// Best time in nanoseconds of `rounds` runs of `work`.
inline qint64 best(int rounds, const std::function<void()> &work)
{
    qint64 bestNs = std::numeric_limits<qint64>::max();
    for (int r = 0; r < rounds; ++r) {
        QElapsedTimer t;
        t.start();
        work();
        bestNs = std::min(bestNs, t.nsecsElapsed());
    }
    return bestNs;
}

inline void report(const QString &what, qint64 subjectNs, const QString &baseline, qint64 baselineNs, int units = 1)
{
    QTextStream out(stdout);
    out << what << ": " << QString::number(subjectNs / 1e3 / units, 'f', 2) << " us; "
        << baseline << ": " << QString::number(baselineNs / 1e3 / units, 'f', 2) << " us; ratio "
        << QString::number(double(subjectNs) / double(std::max<qint64>(1, baselineNs)), 'f', 2) << "\n";
    out.flush();
}

/// The baseline of the lookups: each statement run through the raw driver, first value read.
inline void rawQueries(const QSqlDatabase &db, const QStringList &statements)
{
    QString sink;
    for (const QString &sql : statements) {
        QSqlQuery q(db);
        q.setForwardOnly(true);
        q.exec(sql);
        if (q.next())
            sink = q.value(0).toString();
    }
}

} // namespace bench
