#include "simulator/weldcommands.h"

#include "simulator/confignodes.h"

#include <QCoreApplication>
#include <QJsonArray>

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

CommandOutcome done()
{
    return {kDone, true, {}, {}};
}

CommandOutcome refused(int code, const QString& reason)
{
    return {code, false, reason, {}};
}

CommandOutcome replaceNode(const CommandRow& row, WeldData& data, const QJsonValue& argument)
{
    data.nodes.insert(QLatin1String(row.node), argument);
    return done();
}

/// A set, a table or a curve of a node that has several: the others stay.
CommandOutcome replaceMembers(const CommandRow& row, WeldData& data, const QJsonValue& argument)
{
    QJsonObject node = data.nodes.value(QLatin1String(row.node)).toObject();
    const QJsonObject members = argument.toObject();
    for (auto member = members.constBegin(); member != members.constEnd(); ++member) {
        node.insert(member.key(), member.value());
    }
    data.nodes.insert(QLatin1String(row.node), node);
    return done();
}

/// The nodes of a curve, whose argument has two members: their number and the nodes themselves. Nothing, and why, when
/// these two disagree, which a schema can't say.
std::optional<QJsonArray> curveNodes(const QJsonValue& curve, QString* reason)
{
    int count = 0;
    QJsonArray nodes;
    for (const QJsonValue member : curve.toObject()) {
        if (member.isArray()) {
            nodes = member.toArray();
        } else {
            count = member.toInt();
        }
    }
    if (nodes.size() != count) {
        *reason = words("the number of nodes is %1, and there are %2").arg(count).arg(nodes.size());
        return std::nullopt;
    }
    return nodes;
}

CommandOutcome replaceCurve(const CommandRow& row, WeldData& data, const QJsonValue& argument)
{
    QString reason;
    return curveNodes(argument, &reason) ? replaceMembers(row, data, argument) : refused(kBadArgument, reason);
}

/// The line with the least squares of the distances in the physical value.
CommandOutcome computeCurve(const CommandRow& /*row*/, WeldData& /*data*/, const QJsonValue& argument)
{
    QString reason;
    const auto nodes = curveNodes(argument, &reason);
    if (!nodes) {
        return refused(kBadArgument, reason);
    }
    // Counted from the first node, equal ports have no spread at all; their mean could miss them by a rounding error.
    const double firstPort = nodes->first()[0].toDouble();
    double meanPort = 0;
    double meanValue = 0;
    for (const QJsonValue node : *nodes) {
        meanPort += (node[0].toDouble() - firstPort) / nodes->size();
        meanValue += node[1].toDouble() / nodes->size();
    }
    double spread = 0;
    double common = 0;
    for (const QJsonValue node : *nodes) {
        const double port = node[0].toDouble() - firstPort - meanPort;
        spread += port * port;
        common += port * (node[1].toDouble() - meanValue);
    }
    if (spread <= 0) {
        return refused(kBadArgument, words("all nodes have the same port value"));
    }
    const double slope = common / spread;
    CommandOutcome outcome = done();
    const double intercept = meanValue - slope * (firstPort + meanPort);
    outcome.details = {{QStringLiteral("slope"), slope}, {QStringLiteral("intercept"), intercept}};
    return outcome;
}

/// The one command whose code is a boolean with the sense "did it".
CommandOutcome setWeldEnable(const CommandRow& row, WeldData& data, const QJsonValue& argument)
{
    data.weldEnabled = argument == QJsonValue(QStringLiteral("TRUE"));
    // The pendant derives its main switch from the setting node, so the node follows.
    const QJsonValue setting = data.nodes.value(QLatin1String(row.node));
    if (setting.isObject()) {
        QJsonObject members = setting.toObject();
        members.insert(QLatin1String(node::kMainEnable), data.weldEnabled);
        data.nodes.insert(QLatin1String(row.node), members);
    }
    return {true, true, {}, {}};
}

CommandOutcome setVirtualWelding(const CommandRow& /*row*/, WeldData& data, const QJsonValue& argument)
{
    data.values.insert(QLatin1String(node::kVirtualWelding), argument);
    return done();
}

CommandOutcome setRedLight(const CommandRow& /*row*/, WeldData& data, const QJsonValue& argument)
{
    data.values.insert(QLatin1String(node::kRedLight), argument);
    return done();
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
    return refused(kNotNow, words("the controller has no %1").arg(QLatin1String(node::kSetting)));
}

/// The wire runs for as long as its key is held. Two keys that are held at once contradict each other: the second one
/// stops the wire, and it stays where it is until a key is pressed anew.
CommandOutcome runWire(WeldData& data, Consumables::Wire direction, const char* speedMember, const QJsonValue& argument)
{
    Consumables& wire = data.consumables;
    if (!argument.toBool()) {
        if (wire.wire() == direction) {
            wire.stopWire();
        }
        return done();
    }
    if (wire.wire() != Consumables::Wire::Stopped && wire.wire() != direction) {
        wire.stopWire();
        return refused(kNotNow, words("the wire was running the other way; it is stopped"));
    }
    const std::optional<double> speed = settingNumber(data, speedMember);
    if (!speed) {
        return noSetting();
    }
    wire.runWire(direction, *speed);
    return done();
}

CommandOutcome feedWire(const CommandRow& /*row*/, WeldData& data, const QJsonValue& argument)
{
    return runWire(data, Consumables::Wire::Feeding, "manual_feed_speed", argument);
}

CommandOutcome retractWire(const CommandRow& /*row*/, WeldData& data, const QJsonValue& argument)
{
    return runWire(data, Consumables::Wire::Retracting, "manual_retract_speed", argument);
}

CommandOutcome openGas(const CommandRow& /*row*/, WeldData& data, const QJsonValue& /*argument*/)
{
    const std::optional<double> time = settingNumber(data, "manual_gas_time");
    if (!time) {
        return noSetting();
    }
    data.consumables.openGas(*time);
    return done();
}

CommandOutcome switchMonitor(const CommandRow& /*row*/, WeldData& data, const QJsonValue& argument)
{
    data.monitoring = argument.toBool();
    return done();
}

constexpr CommandRow kCommands[] = {
    {"set_weld_setting_config", replaceNode, node::kSetting},
    {"set_weld_enable", setWeldEnable, node::kSetting},
    {"set_virtual_welding", setVirtualWelding},
    {"set_weld_feed_wire", feedWire},
    {"set_weld_retract_wire", retractWire},
    {"set_weld_manual_gas", openGas},
    {"set_weld_red_light", setRedLight},
    {"start_laserweld_monitor", switchMonitor},
    {"set_weld_io_config", replaceNode, node::kIo},
    {"set_weld_param_list_config", replaceMembers, node::kParameters},
    {"set_weld_param_match_config", replaceMembers, node::kMatch},
    {"set_weld_curve_power_config", replaceCurve, node::kCurves},
    {"set_weld_curve_feed_config", replaceCurve, node::kCurves},
    {"set_weld_curve_frequency_config", replaceCurve, node::kCurves},
    {"set_weld_curve_dutycycle_config", replaceCurve, node::kCurves},
    {"compute_curve_config", computeCurve},
};

} // namespace

CommandOutcome CommandRow::execute(WeldData& data, const QJsonValue& argument) const
{
    if (const auto fault = SchemaValidator::of(QLatin1String(name)).fault(argument)) {
        CommandOutcome outcome = refused(kBadArgument, fault->toString());
        if (work == setWeldEnable) {
            outcome.code = false;
        }
        return outcome;
    }
    return work(*this, data, argument);
}

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
