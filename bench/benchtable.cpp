#include "benchtable.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

namespace {

double scaleFor(const QString& unit)
{
    if (unit == "s")
        return 1e-9;
    if (unit == "ms")
        return 1e-6;
    return 1e-3; // us
}

} // namespace

void BenchTable::measure(const QString& name, const QString& unit, double target, int runs,
                         const std::function<void()>& work, int perCall)
{
    work(); // warm caches and lazy initialisation
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.append(double(timer.nsecsElapsed()) * scaleFor(unit) / perCall);
    }
    addMedian(name, unit, target, times);
}

void BenchTable::measureStep(const QString& name, const QString& unit, double target, int runs,
                             const std::function<void()>& prepare, const std::function<void()>& work)
{
    prepare();
    work();
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        times.append(double(timer.nsecsElapsed()) * scaleFor(unit));
    }
    addMedian(name, unit, target, times);
}

void BenchTable::addMedian(const QString& name, const QString& unit, double target, QList<double> times)
{
    std::sort(times.begin(), times.end());
    const int runs = int(times.size());
    const double median = runs % 2 ? times[runs / 2] : (times[runs / 2 - 1] + times[runs / 2]) / 2;
    mRows.append({ name, unit, median, target, runs });
}

void BenchTable::record(const QString& name, const QString& unit, double value, double target, int runs)
{
    mRows.append({ name, unit, value, target, runs });
}

void BenchTable::print() const
{
    printf("| %-60s | %12s | %10s | %4s | %-4s |\n", "benchmark", "median", "target", "runs", "met");
    printf("|%s|%s|%s|%s|%s|\n", QByteArray(62, '-').constData(), QByteArray(14, '-').constData(),
           QByteArray(12, '-').constData(), QByteArray(6, '-').constData(), QByteArray(6, '-').constData());
    for (const Row& row : mRows) {
        const QByteArray median = QString("%1 %2").arg(row.median, 0, 'f', 3).arg(row.unit).toUtf8();
        const bool info = row.target <= 0;
        const QByteArray target = info ? QByteArray("-") : QString("< %1 %2").arg(row.target).arg(row.unit).toUtf8();
        // Padded by characters, not bytes, so a name with "×" keeps the columns.
        printf("| %s | %12s | %10s | %4d | %-4s |\n", row.name.leftJustified(60).toUtf8().constData(), median.constData(),
               target.constData(), row.runs, info ? "" : row.median < row.target ? "yes" : "NO");
    }
    fflush(stdout);
}

bool BenchTable::allMet() const
{
    return std::all_of(mRows.begin(), mRows.end(),
                       [](const Row& row) { return row.target <= 0 || row.median < row.target; });
}
