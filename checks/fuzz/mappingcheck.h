#ifndef CHECKS_FUZZ_MAPPINGCHECK_H
#define CHECKS_FUZZ_MAPPINGCHECK_H

#include <QJsonObject>

class FakeHost;

namespace fuzz
{

/// A weld I/O mapping as far as it can be had from the host: without ports that are not offered under the type of their
/// signal (any that the signal can't have counts as the first one), and with the last element of a register for one
/// that it does not have.
QJsonObject possibleMapping(const FakeHost& host, const QJsonObject& mapping);

/// Whether a mapping says all by itself: an element below 0 leaves the one that is shown.
bool isWholeMapping(const QJsonObject& mapping);

} // namespace fuzz

#endif
