#ifndef BENCH_BENCHTABLE_H
#define BENCH_BENCHTABLE_H

#include <QString>

#include <functional>
#include <optional>

/// CPU time of this thread in milliseconds while work runs: other processes of the machine don't count.
double cpuMs(const std::function<void()>& work);

/// Stops all benchmarks, with what was expected, unless it holds: what did something else is not worth measuring.
void insist(bool holds, const char* expected);

/// One way to do something. A sample prepares, does it once and returns the milliseconds that count.
struct Contestant {
    QString name;
    std::function<double()> sample;
};

/// Repeats short work until it can be measured; one sample is the mean of a run.
Contestant repeated(const QString& name, const std::function<void()>& work);

/// The table of all benchmarks: ours beside something that does the same. Both run in one process and in turns, in
/// 7 rounds after one that doesn't count; what stands in the table are the medians and their ratio.
class BenchTable
{
public:
    /// Only the rows whose text contains the filter are run.
    explicit BenchTable(QString filter) : m_filter(std::move(filter)) {}

    /// Measures and prints one row. It holds when ours takes at most limit times as long as the other; a row without a
    /// limit is for information.
    void row(const Contestant& ours, const Contestant& beside, std::optional<double> limit);

    /// Whether every row held; false also when there was none.
    bool allHeld() const { return m_rows > 0 && m_missed == 0; }

private:
    QString m_filter;
    int m_rows = 0;
    int m_missed = 0;
};

/// The rows, by what they measure.
void addCatalogueRows(BenchTable& table);
void addCurveRows(BenchTable& table);
void addInstructionRows(BenchTable& table);
void addLogRows(BenchTable& table);
void addPageRows(BenchTable& table);
void addWeldIoRows(BenchTable& table);

#endif
