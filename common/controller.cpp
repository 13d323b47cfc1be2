#include "common/controller.h"

#include "common/names.h"

#include "pendix/interfacemanager.h"

namespace controller
{

namespace
{
const QString& pluginName()
{
    static const QString name = QString::fromLatin1(names::kPlugin);
    return name;
}

/// What the host answers; without one an empty value.
template <typename Value>
Value ask(Value (pendix::InterfaceManager::*question)())
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? (host->*question)() : Value();
}
} // namespace

QJsonValue readNode(const QString& name)
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->getVexaServiceData(name) : QJsonValue(QJsonValue::Undefined);
}

QJsonValue hostSetting(const QString& name)
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->getNodeData(name) : QJsonValue(QJsonValue::Undefined);
}

QJsonArray sendCommand(QObject* sender, const QJsonObject& command)
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->commandCustomData(sender, pluginName(), command) : QJsonArray();
}

QJsonArray sendCommand(QObject* sender, const QString& command, const QString& value)
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->commandCustomData(sender, pluginName(), command, value) : QJsonArray();
}

void endSubscription(const QString& data)
{
    if (pendix::InterfaceManager* host = pendixInterface()) {
        host->disconnectVexaServiceData(pluginName(), data, QString());
    }
}

bool isRobotPowered()
{
    pendix::InterfaceManager* host = pendixInterface();
    return host == nullptr || host->getRobotEleStatus();
}

QStringList ioNames(const QString& type)
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->getIOByType(type) : QStringList();
}

QStringList registerNames()
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? QStringList(host->getRegisterHash().keys()) : QStringList();
}

QJsonValue registerMetadata()
{
    pendix::InterfaceManager* host = pendixInterface();
    return host != nullptr ? host->getRegisterValue() : QJsonValue(QJsonValue::Undefined);
}

QStringList pointNames()
{
    return ask(&pendix::InterfaceManager::getPointNameList);
}

QStringList toolNames()
{
    return ask(&pendix::InterfaceManager::getToolList);
}

QStringList wobjNames()
{
    return ask(&pendix::InterfaceManager::getWobjList);
}

QStringList speedNames()
{
    return ask(&pendix::InterfaceManager::getSpeedList);
}

QStringList zoneNames()
{
    return ask(&pendix::InterfaceManager::getZoneList);
}

QString currentTool()
{
    return ask(&pendix::InterfaceManager::getCurTool);
}

QString currentWobj()
{
    return ask(&pendix::InterfaceManager::getCurWobj);
}

void storeCurrentPoint(const QString& name, const QString& tool, const QString& wobj)
{
    if (pendix::InterfaceManager* host = pendixInterface()) {
        constexpr bool kOverwrite = false;
        host->addCurrentPoint(name, kOverwrite, tool, wobj);
    }
}

} // namespace controller
