#ifndef SIMULATOR_PORTUSERS_H
#define SIMULATOR_PORTUSERS_H

#include <QHash>
#include <QJsonValue>
#include <QPair>
#include <QStringList>

namespace sim
{

/// The kind of every port that is a register, as the schema of the I/O node calls it.
constexpr char kRegisterKind[] = "register";

/// A port by its kind, one of DI DO AI AO GI GO and kRegisterKind, and its name. A signal whose node gives a kind that
/// the signal can't have uses a port of an empty kind.
using Port = QPair<QString, QString>;

/// Which laser-welding signals an I/O node gives each port to, in words: "Laser on", "Descent signal (off)" when the
/// signal is switched off, "Process JOB [2]" with the register's element, from 1. The signals and their names are those
/// of the node's schema. A port without a user is not there; a value that is no such node has none.
QHash<Port, QStringList> portUsers(const QJsonValue& ioNode);

} // namespace sim

#endif
