#include "bench/benchtable.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <vector>

namespace
{

constexpr std::size_t kRounds = 7;
constexpr double kShortestRunMs = 5.0; // of repeated work: far above the clock's resolution

double cpuNow()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double median(std::vector<double> samples)
{
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

} // namespace

double cpuMs(const std::function<void()>& work)
{
    const double begin = cpuNow();
    work();
    return cpuNow() - begin;
}

void insist(bool holds, const char* expected)
{
    if (!holds) {
        throw std::logic_error(expected);
    }
}

Contestant repeated(const QString& name, const std::function<void()>& work)
{
    return {name, [work] {
                int runs = 1;
                for (;; runs *= 2) {
                    const double ms = cpuMs([&work, runs] {
                        for (int i = 0; i < runs; ++i) {
                            work();
                        }
                    });
                    if (ms >= kShortestRunMs) {
                        return ms / runs;
                    }
                }
            }};
}

void BenchTable::row(const Contestant& ours, const Contestant& beside, std::optional<double> limit)
{
    if (!m_filter.isEmpty() && !(ours.name + beside.name).contains(m_filter, Qt::CaseInsensitive)) {
        return;
    }
    if (m_rows == 0) {
        std::printf("%-52s %10s  %-46s %10s %7s %6s\n", "ours", "ms", "beside", "ms", "ratio", "limit");
    }
    std::vector<double> our;
    std::vector<double> other;
    ours.sample();
    beside.sample();
    // Who comes first changes: the second finds the caches warm.
    for (std::size_t round = 0; round < kRounds; ++round) {
        if (round % 2 == 0) {
            our.push_back(ours.sample());
            other.push_back(beside.sample());
        } else {
            other.push_back(beside.sample());
            our.push_back(ours.sample());
        }
    }
    const double ratio = median(our) / median(other);
    const bool held = !limit || ratio <= *limit;
    const char* judgement = held ? "held" : "NOT HELD";
    std::printf("%-52s %10.4f  %-46s %10.4f %7.3f %6s  %s\n", qPrintable(ours.name), median(our),
                qPrintable(beside.name), median(other), ratio,
                limit ? qPrintable(QString::number(*limit, 'f', 2)) : "-", limit ? judgement : "information");
    std::fflush(stdout);
    ++m_rows;
    m_missed += held ? 0 : 1;
}
