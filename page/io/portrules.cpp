#include "page/io/portrules.h"

#include <QSet>

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
            ports.push_back({row.signal, row.assignment.port, row.assignment.serverType, biasOf(row.assignment)});
        }
    }
    return ports;
}

const PortConfig* duplicatePort(const std::vector<PortConfig>& ports)
{
    QSet<QString> keys;
    for (const PortConfig& config : ports) {
        const QString key = keyOf(config);
        if (keys.contains(key)) {
            return &config;
        }
        keys.insert(key);
    }
    return nullptr;
}

const IoRowTemplate* signalWithoutPort(const AssignedSignals& rows)
{
    for (const AssignedSignal& row : rows) {
        if (isActive(row) && row.assignment.port.isEmpty()) {
            return row.signal;
        }
    }
    return nullptr;
}
