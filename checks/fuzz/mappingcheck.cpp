#include "checks/fuzz/mappingcheck.h"

#include "checks/support/iosignals.h"
#include "tests/fakehost.h"

#include <QJsonArray>

#include <algorithm>

namespace fuzz
{

namespace
{

/// Elements of the register of that name; 1 when the host does not say how many.
int lengthOf(const QJsonValue& registers, const QString& name)
{
    for (const QJsonValue entry : registers.toArray()) {
        if (entry[QLatin1String("name")].toVariant().toString().trimmed() == name) {
            return std::max(1, entry[QLatin1String("len")].toInt(1));
        }
    }
    return 1;
}

QStringList offered(const FakeHost& host, const IoSignal& signal, int type)
{
    return type == IoSignal::kRegister ? signal.registers(host.registers) : host.io.value(signal.ioTypes.at(type));
}

} // namespace

QJsonObject possibleMapping(const FakeHost& host, const QJsonObject& mapping)
{
    QJsonObject possible = mapping;
    for (const IoSignal& signal : ioSignals()) {
        const QString portKey = signal.key + QLatin1String("_port");
        const QString biasKey = signal.key + QLatin1String("_bias");
        const int stored = mapping.value(signal.key + QLatin1String("_type")).toInt();
        const bool canBe = stored == IoSignal::kRegister || (stored >= 0 && stored < signal.ioTypes.size());
        const int type = canBe ? stored : 0;
        QString port = mapping.value(portKey).toString();
        if (!port.isEmpty() && !offered(host, signal, type).contains(port)) {
            port.clear();
            possible.insert(portKey, port);
        }
        const bool hasElements = type == IoSignal::kRegister && !port.isEmpty();
        const int last = hasElements ? lengthOf(host.registers, port) - 1 : 0;
        if (mapping.value(biasKey).toInt() > last) {
            possible.insert(biasKey, last);
        }
    }
    return possible;
}

bool isWholeMapping(const QJsonObject& mapping)
{
    return std::all_of(ioSignals().begin(), ioSignals().end(), [&mapping](const IoSignal& signal) {
        return mapping.value(signal.key + QLatin1String("_bias")).toInt() >= 0;
    });
}

} // namespace fuzz
