#ifndef CHECKS_FUZZ_REQUIRE_H
#define CHECKS_FUZZ_REQUIRE_H

#include <QString>

namespace fuzz
{

/// Ends the process: one line "FAILED: reason" on the error output, then abort(), which a fuzzer takes for a crash
/// and keeps the input of.
[[noreturn]] void fail(const QString& reason);

/// Ends the process in the same way unless the rule holds, in every kind of build.
inline void require(bool holds, const char* rule)
{
    if (!holds) {
        fail(QString::fromUtf8(rule));
    }
}

/// Takes the package's log lines and Qt's warnings off the error output, where thousands a second would bury what
/// a fuzzer says. Fatal messages of Qt and reports of the sanitizers still get through.
void silenceLogs();

} // namespace fuzz

#endif
