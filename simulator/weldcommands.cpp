#include "simulator/weldcommands.h"

#include "simulator/nodeschema.h"

#include <QCoreApplication>

#include <optional>

namespace sim
{

namespace
{

constexpr int kDone = 0;
constexpr int kBadArgument = 1;
constexpr int kNotNow = 2;

QString words(const char* text)
{
    return QCoreApplication::translate("sim::WeldCommands", text);
}

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
        return {false, false, words("expected the text \"TRUE\" or \"FALSE\"")};
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

CommandOutcome notABoolean()
{
    return {kBadArgument, false, words("expected true or false")};
}

CommandOutcome setValue(WeldData& data, const char* value, const QJsonValue& argument)
{
    if (!argument.isBool()) {
        return notABoolean();
    }
    data.values.insert(QLatin1String(value), argument);
    return {kDone, true, {}};
}

CommandOutcome setVirtualWelding(WeldData& data, const QJsonValue& argument)
{
    return setValue(data, node::kVirtualWelding, argument);
}

CommandOutcome setRedLight(WeldData& data, const QJsonValue& argument)
{
    return setValue(data, node::kRedLight, argument);
}

/// A number of the setting node; nothing when the controller has no such node.
std::optional<double> settingNumber(const WeldData& data, const char* member)
{
    const QJsonValue setting = data.nodes.value(QLatin1String(node::kSetting));
    return setting.isObject() ? std::optional(setting.toObject().value(QLatin1String(member)).toDouble())
                              : std::nullopt;
}

CommandOutcome noSetting()
{
    return {kNotNow, false, words("the controller has no %1").arg(QLatin1String(node::kSetting))};
}

/// The wire runs for as long as its key is held. Two keys that are held at once contradict each other: the second one
/// stops the wire, and it stays where it is until a key is pressed anew.
CommandOutcome runWire(WeldData& data, Consumables::Wire direction, const char* speedMember, const QJsonValue& argument)
{
    if (!argument.isBool()) {
        return notABoolean();
    }
    Consumables& wire = data.consumables;
    if (!argument.toBool()) {
        if (wire.wire() == direction) {
            wire.stopWire();
        }
        return {kDone, true, {}};
    }
    if (wire.wire() != Consumables::Wire::Stopped && wire.wire() != direction) {
        wire.stopWire();
        return {kNotNow, false, words("the wire was running the other way; it is stopped")};
    }
    const std::optional<double> speed = settingNumber(data, speedMember);
    if (!speed) {
        return noSetting();
    }
    wire.runWire(direction, *speed);
    return {kDone, true, {}};
}

CommandOutcome feedWire(WeldData& data, const QJsonValue& argument)
{
    return runWire(data, Consumables::Wire::Feeding, "manual_feed_speed", argument);
}

CommandOutcome retractWire(WeldData& data, const QJsonValue& argument)
{
    return runWire(data, Consumables::Wire::Retracting, "manual_retract_speed", argument);
}

CommandOutcome openGas(WeldData& data, const QJsonValue& argument)
{
    if (!argument.isBool()) {
        return notABoolean();
    }
    const std::optional<double> time = argument.toBool() ? settingNumber(data, "manual_gas_time") : 0;
    if (!time) {
        return noSetting();
    }
    data.consumables.openGas(*time);
    return {kDone, true, {}};
}

CommandOutcome switchMonitor(WeldData& data, const QJsonValue& argument)
{
    if (!argument.isBool()) {
        return notABoolean();
    }
    data.monitoring = argument.toBool();
    return {kDone, true, {}};
}

constexpr CommandRow kCommands[] = {
    {"set_weld_setting_config", setWeldSetting},       {"set_weld_enable", setWeldEnable},
    {"set_virtual_welding", setVirtualWelding, false}, {"set_weld_feed_wire", feedWire, false},
    {"set_weld_retract_wire", retractWire, false},     {"set_weld_manual_gas", openGas, false},
    {"set_weld_red_light", setRedLight, false},        {"start_laserweld_monitor", switchMonitor, false},
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
