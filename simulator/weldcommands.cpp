#include "simulator/weldcommands.h"

#include "simulator/nodeschema.h"

#include <QCoreApplication>

namespace sim
{

namespace
{

constexpr int kDone = 0;
constexpr int kBadArgument = 1;

CommandOutcome setWeldSetting(WeldData& data, const QJsonValue& argument)
{
    JsonCheck check;
    checkNode(check, QLatin1String(node::kSetting), argument, JsonPath());
    if (const auto& fault = check.fault()) {
        return {kBadArgument, false, (fault->path.toString() + QLatin1Char(' ') + fault->text).trimmed()};
    }
    data.nodes.insert(QLatin1String(node::kSetting), argument);
    return {kDone, true, {}};
}

/// The one command whose code is a boolean with the sense "did it".
CommandOutcome setWeldEnable(WeldData& data, const QJsonValue& argument)
{
    const bool on = argument == QJsonValue(QStringLiteral("TRUE"));
    if (!on && argument != QJsonValue(QStringLiteral("FALSE"))) {
        return {false, false,
                QCoreApplication::translate("sim::WeldCommands", "expected the text \"TRUE\" or \"FALSE\"")};
    }
    data.weldEnabled = on;
    // The pendant derives its main switch from the setting node, so the node follows.
    const QJsonValue setting = data.nodes.value(QLatin1String(node::kSetting));
    if (setting.isObject()) {
        QJsonObject members = setting.toObject();
        members.insert(QLatin1String(node::kMainEnable), on);
        data.nodes.insert(QLatin1String(node::kSetting), members);
    }
    return {true, true, {}};
}

constexpr CommandRow kCommands[] = {
    {"set_weld_setting_config", setWeldSetting},
    {"set_weld_enable", setWeldEnable},
};

} // namespace

QStringList commandNames()
{
    QStringList names;
    for (const CommandRow& row : kCommands) {
        names.append(QLatin1String(row.name));
    }
    return names;
}

const CommandRow* findCommand(const QString& name)
{
    for (const CommandRow& row : kCommands) {
        if (name == QLatin1String(row.name)) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace sim
