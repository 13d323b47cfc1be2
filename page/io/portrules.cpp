#include "page/io/portrules.h"

#include <QSet>

#include <algorithm>

namespace
{

QString keyOf(const PortConfig& config)
{
    const QString key = config.port + QLatin1Char('_') + QString::number(config.type);
    return config.type == kRegisterType ? key + QLatin1Char('_') + QString::number(config.bias) : key;
}

} // namespace

QString registerOf(const AssignedSignal& row)
{
    return row.assignment.serverType == kRegisterType ? row.assignment.port.trimmed() : QString();
}

bool isActive(const AssignedSignal& row)
{
    return row.signal->alwaysActive() || row.assignment.isOn;
}

std::vector<PortConfig> occupiedPorts(const AssignedSignals& rows)
{
    std::vector<PortConfig> ports;
    for (const AssignedSignal& row : rows) {
        if (isActive(row) && !row.assignment.port.isEmpty()) {
            ports.push_back({row.assignment.port, row.assignment.serverType, biasOf(row.assignment)});
        }
    }
    return ports;
}

std::optional<QString> duplicatePort(const std::vector<PortConfig>& ports)
{
    QSet<QString> keys;
    for (const PortConfig& config : ports) {
        const QString key = keyOf(config);
        if (keys.contains(key)) {
            return config.port;
        }
        keys.insert(key);
    }
    return std::nullopt;
}

bool hasEmptyPort(const AssignedSignals& rows)
{
    return std::any_of(rows.begin(), rows.end(),
                       [](const AssignedSignal& row) { return isActive(row) && row.assignment.port.isEmpty(); });
}
