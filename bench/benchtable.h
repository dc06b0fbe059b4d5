#pragma once
#include <QList>
#include <QString>
#include <functional>

// Times a piece of work several times and prints the medians as one table,
// each beside the target it must meet.
class BenchTable
{
public:
    // Runs `work` `runs` times after one warm-up and records the median in
    // the given unit ("s", "ms" or "us"), divided by `perCall` repetitions.
    void measure(const QString& name, const QString& unit, double target, int runs,
                 const std::function<void()>& work, int perCall = 1);
    // The same for work that needs a fresh start each time: `prepare` runs
    // before every timed call of `work`, outside the timing.
    void measureStep(const QString& name, const QString& unit, double target, int runs,
                     const std::function<void()>& prepare, const std::function<void()>& work);
    // A figure measured elsewhere, such as a memory size or a median taken
    // beside another; a target of 0 marks a figure shown for comparison.
    void record(const QString& name, const QString& unit, double value, double target, int runs = 1);
    void print() const;
    bool allMet() const;

private:
    void addMedian(const QString& name, const QString& unit, double target, QList<double> times);

    struct Row
    {
        QString name;
        QString unit;
        double median;
        double target;
        int runs;
    };
    QList<Row> mRows;
};
