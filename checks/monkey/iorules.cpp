#include "checks/monkey/iorules.h"

#include "checks/support/iosignals.h"

#include <QSet>

QString brokenIoRule(const QJsonObject& mapping, const QJsonValue& registers)
{
    QSet<QString> used;
    for (const IoSignal& signal : ioSignals()) {
        const int type = mapping.value(signal.key + QLatin1String("_type")).toInt();
        const QString port = mapping.value(signal.key + QLatin1String("_port")).toString();
        const bool isRegister = type == IoSignal::kRegister;
        if (isRegister && !port.isEmpty() && !signal.registers(registers).contains(port)) {
            return QStringLiteral("%1 can't use the register %2").arg(signal.key, port);
        }
        if (!signal.switchKey.isEmpty() && !mapping.value(signal.switchKey).toBool()) {
            continue;
        }
        if (port.isEmpty()) {
            return QStringLiteral("%1 is in use and has no port").arg(signal.key);
        }
        const int element = isRegister ? mapping.value(signal.key + QLatin1String("_bias")).toInt() : 0;
        const QString place = QStringLiteral("%1 %2 %3 %4")
                                  .arg(signal.isOutput() ? QLatin1String("output") : QLatin1String("input"), port,
                                       QString::number(type), QString::number(element));
        if (used.contains(place)) {
            return QStringLiteral("%1 has a port that is in use: %2").arg(signal.key, place);
        }
        used.insert(place);
    }
    return {};
}
