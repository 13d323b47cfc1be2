#ifndef CHECKS_MONKEY_IORULES_H
#define CHECKS_MONKEY_IORULES_H

#include <QJsonObject>
#include <QString>

/// The rule that a weld I/O mapping breaks, in words, or nothing: a register that the signal can't use, a port twice
/// among the outputs or the inputs that are in use, a signal in use without a port.
/// registers: as the controller has described them last.
QString brokenIoRule(const QJsonObject& mapping, const QJsonValue& registers);

#endif
