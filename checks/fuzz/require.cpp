#include "checks/fuzz/require.h"

#include <QByteArray>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace fuzz
{

namespace
{

void onlyFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtFatalMsg) {
        fail(text);
    }
}

} // namespace

void fail(const QString& reason)
{
    // Past stdio, whose error stream may be silenced.
    dprintf(STDERR_FILENO, "FAILED: %s\n", reason.toUtf8().constData());
    std::abort();
}

void silenceLogs()
{
    qInstallMessageHandler(onlyFatal);
    // Only the stream is exchanged: sanitizers write to the descriptor, and a fuzzer has kept the stream it found.
    stderr = std::fopen("/dev/null", "w");
    require(stderr != nullptr, "/dev/null can't be opened");
}

} // namespace fuzz
