// What the log file adds to a log statement.

#include "bench/benchtable.h"
#include "common/logline.h"
#include "tests/fakehost.h"

namespace
{

class SilentHost : public FakeHost
{
public:
    void log(const pendix::LogStatement& /*statement*/) override {}
};

Contestant statement(const QString& name, LogLevel level)
{
    return repeated(name, [level] {
        const SilentHost host;
        for (int i = 0; i < 100; ++i) {
            logLine(level) << "Parsing failed, input:" << QStringLiteral("LaserOn(\"LsData1\", 250);") << i;
        }
    });
}

} // namespace

void addLogRows(BenchTable& table)
{
    table.row(statement(QStringLiteral("100 log statements, console and file"), LogLevel::Error),
              statement(QStringLiteral("console alone"), LogLevel::Debug), 2.0);
}
