// Reading program lines, beside one regular expression that does the same, in one run. Closes with how many times as
// fast ours is on each line.

#include "common/logline.h"
#include "pendixhost/host.h"
#include "rl/callscanner.h"
#include "rl/instructiontext.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>

namespace
{

struct Line {
    const char* name;
    QString text;
};

const QVector<Line>& lines()
{
    static const QVector<Line> all = {
        {"LaserOn", QStringLiteral("LaserOn(\"LsData1\", 250);")},
        {"LsMoveL with Offs", QStringLiteral("LsMoveL(Offs(p12,10,0,-2.5), v100, z10, tool0, wobj0);")},
        {"LsMoveCF", QStringLiteral("LsMoveCF(p1, p2, 360, \"RotAxis\", v100, z10, tool0, wobj0);")},
        {"long", "LsMoveC(RelTool(p1,1.25,2.5,3.75,90,-45,180), " + QStringLiteral("p1234567890,").repeated(40) +
                     " tool0, wobj0);"},
        {"refused", QStringLiteral("LsMoveL(p1, v100, z10, tool0, wobj0); // to the seam")},
    };
    return all;
}

const QRegularExpression& expression()
{
    static const QRegularExpression compiled = [] {
        QRegularExpression fresh(QStringLiteral(R"(^\s*(\w+)\s*\((.*?)\);?\s*$)"));
        fresh.optimize();
        return fresh;
    }();
    return compiled;
}

struct Split {
    bool isCall = false;
    QString name;
    QStringList arguments;
};

Split splitByExpression(const QString& text)
{
    const QRegularExpressionMatch match = expression().match(text);
    if (!match.hasMatch()) {
        return {};
    }
    Split split{true, match.captured(1).trimmed(), {}};
    const QString arguments = match.captured(2).trimmed();
    int depth = 0;
    int begin = 0;
    const auto append = [&](int end) {
        const QString piece = arguments.mid(begin, end - begin).trimmed();
        if (!piece.isEmpty()) {
            split.arguments.append(piece);
        }
    };
    for (int i = 0; i < arguments.size(); ++i) {
        const QChar c = arguments.at(i);
        if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')') && depth > 0) {
            --depth;
        } else if (c == QLatin1Char(',') && depth == 0) {
            append(i);
            begin = i + 1;
        }
    }
    append(arguments.size());
    return split;
}

Split splitByHand(const QString& text)
{
    const std::optional<CallText> call = scanCall(text);
    return call ? Split{true, call->name.toString(), splitArguments(call->arguments)} : Split();
}

bool readByExpression(const QString& input, QString& functionName, QStringList& parameters)
{
    const Split split = splitByExpression(input);
    functionName = split.name;
    parameters = split.arguments;
    if (!split.isCall) {
        logLine(LogLevel::Error) << "Parsing failed: Input string does not match function call format. input:" << input;
        return false;
    }
    if (parameters.isEmpty()) {
        logLine(LogLevel::Error) << "Extracted Parameter List: (Empty)";
        return true;
    }
    logLine(LogLevel::Debug) << "functionName:" << functionName << ",parameterList:" << parameters;
    return true;
}

template <typename Read>
void readLine(benchmark::State& state, const QString& text, Read read)
{
    QString name;
    QStringList arguments;
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(text, name, arguments));
        benchmark::DoNotOptimize(arguments);
    }
}

void split(benchmark::State& state, const QString& text, Split (*splitText)(const QString&))
{
    for (auto _ : state) {
        const Split done = splitText(text);
        benchmark::DoNotOptimize(&done);
    }
}

/// Prints the table, and at its end the ratio of each pair "line/ours" and "line/theirs".
class Ratios : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median") {
                m_times[run.run_name.function_name] = run.GetAdjustedCPUTime();
            }
        }
    }
    void Finalize() override
    {
        for (const Line& line : lines()) {
            tell(line.name, "whole");
            tell(line.name, "split");
        }
    }

private:
    /// Says nothing about what has not been run.
    void tell(const std::string& line, const std::string& part)
    {
        const auto ours = m_times.find(line + ", " + part + ", ours");
        const auto theirs = m_times.find(line + ", " + part + ", expression");
        if (ours != m_times.end() && theirs != m_times.end()) {
            std::printf("%s, %s: ours is %.2f times as fast\n", line.c_str(), part.c_str(),
                        theirs->second / ours->second);
        }
    }

    std::map<std::string, double> m_times;
};

/// Takes what is logged and keeps nothing of it.
class SilentHost : public pendix::Host
{
public:
    SilentHost() { pendix::installHost(this); }
    ~SilentHost() override { pendix::installHost(nullptr); }

    pendix::InterfaceManager* interfaceManager() override { return nullptr; }
    void throwLog(const QString&, pendix::enThrowLogLevel, const QString&) override {}
    void createCenterWidget(const QString&, QWidget*) override {}
    void createStatusBar(const QString&, QWidget*, int) override {}
    void createPhyButtonList(const QString&, const QString&, const QList<pendix::PhysicalButton>&,
                             const QList<pendix::PhysicalButton>&, const QStringList&) override
    {
    }
    void changePhyButtonStatus(const QString&, const QString&, bool) override {}
    void changeModelWindowStatus(const QString&, bool) override {}
    int pluginNoUniqueWidget(const QString&, QWidget*&) override { return 0; }
    void log(const pendix::LogStatement&) override {}
};

} // namespace

int main(int count, char** words)
{
    benchmark::Initialize(&count, words);
    if (benchmark::ReportUnrecognizedArguments(count, words)) {
        return 1;
    }
    const SilentHost host;
    // The package writes its log below the working folder.
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    // Each log line also goes to the error output.
    if (std::freopen("/dev/null", "w", stderr) == nullptr) {
        return 1;
    }
    for (const Line& line : lines()) {
        const std::string name = line.name;
        const QString text = line.text;
        benchmark::RegisterBenchmark((name + ", whole, ours").c_str(), [text](benchmark::State& state) {
            readLine(state, text, corvane::util::extractFunctionAndParameters);
        });
        benchmark::RegisterBenchmark((name + ", whole, expression").c_str(),
                                     [text](benchmark::State& state) { readLine(state, text, readByExpression); });
        benchmark::RegisterBenchmark((name + ", split, ours").c_str(),
                                     [text](benchmark::State& state) { split(state, text, splitByHand); });
        benchmark::RegisterBenchmark((name + ", split, expression").c_str(),
                                     [text](benchmark::State& state) { split(state, text, splitByExpression); });
    }
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return 0;
}
