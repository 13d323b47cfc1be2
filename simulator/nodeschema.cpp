#include "simulator/nodeschema.h"

#include <iterator>

namespace sim
{

namespace
{

enum class Kind { Bool, Number, Text };

struct Member {
    const char* key;
    Kind kind;
};

constexpr Member kSetting[] = {
    {node::kMainEnable, Kind::Bool},
    {"laser_comm_type", Kind::Number},
    {"laser_power", Kind::Number},
    {"feedback_delay", Kind::Number},
    {"pre_gas_time", Kind::Number},
    {"delay_off_time", Kind::Number},
    {"detection_delay", Kind::Number},
    {"manual_gas_time", Kind::Number},
    {"retraction_distance", Kind::Number},
    {"retraction_speed", Kind::Number},
    {"detection_time", Kind::Number},
    {"feeder_enable", Kind::Bool},
    {"wire_feeder_comm_type", Kind::Number},
    {"max_feed_speed", Kind::Number},
    {"manual_feed_speed", Kind::Number},
    {"manual_retract_speed", Kind::Number},
    {"wire_feedback_detection", Kind::Number},
    {"laser_check_out_time", Kind::Number},
};

constexpr Member kParameterSet[] = {
    {"LsDataID", Kind::Text},
    {"Tips", Kind::Text},
    {"laser_power_start", Kind::Number},
    {"frequency_start", Kind::Number},
    {"duty_cycle_start", Kind::Number},
    {"ramp_mode_start", Kind::Number},
    {"ramp_value_start", Kind::Number},
    {"delay_time_start", Kind::Number},
    {"welding_speed", Kind::Number},
    {"laser_power_weld", Kind::Number},
    {"frequency_weld", Kind::Number},
    {"duty_cycle_weld", Kind::Number},
    {"laser_power_end", Kind::Number},
    {"frequency_end", Kind::Number},
    {"duty_cycle_end", Kind::Number},
    {"ramp_mode_end", Kind::Number},
    {"ramp_value_end", Kind::Number},
    {"delay_time_end", Kind::Number},
    {"laser_off_mode", Kind::Number},
    {"wire_feed_enable_start", Kind::Bool},
    {"feeding_speed_start", Kind::Number},
    {"wire_mode_start", Kind::Number},
    {"wire_feed_time_start", Kind::Number},
    {"feeding_speed_run", Kind::Number},
    {"wire_feed_enable_end", Kind::Bool},
    {"wire_speed_end", Kind::Number},
    {"wire_mode_end", Kind::Number},
    {"wire_feed_time_end", Kind::Number},
    {"wire_stick_enable_end", Kind::Bool},
    {"wire_retraction_end", Kind::Bool},
    {"wire_retract_end", Kind::Number},
    {"wire_retract_time_end", Kind::Number},
    {"wire_fill_com_end", Kind::Bool},
    {"fill_delay_time_end", Kind::Number},
    {"fill_wire_speed_end", Kind::Number},
    {"fill_wire_time_end", Kind::Number},
    {"work_mode", Kind::Number},
    {"swing_job", Kind::Number},
    {"process_job", Kind::Number},
};

/// What a signal can be tied to: its own kind of port (type 0) or a register (2), some also to a group port (1).
enum class TypeChoice { Two, Three };

/// One signal of the I/O mapping: prefix of its members and, when it can be switched off, that switch.
struct Signal {
    const char* key;
    const char* enabledKey;
    TypeChoice types;
};

constexpr Signal kSignals[] = {
    {"laser_enable", nullptr, TypeChoice::Two},
    {"power", "power_enabled", TypeChoice::Three},
    {"frequency", "frequency_enabled", TypeChoice::Three},
    {"duty_cycle", "duty_cycle_enabled", TypeChoice::Three},
    {"red_light", "red_light_enabled", TypeChoice::Two},
    {"gas_protect", nullptr, TypeChoice::Two},
    {"wire_speed", "wire_speed_enabled", TypeChoice::Three},
    {"wire_feed", "wire_feed_enabled", TypeChoice::Two},
    {"retract_direction", "retract_direction_enabled", TypeChoice::Two},
    {"manual_wire_feed", "manual_wire_feed_enabled", TypeChoice::Two},
    {"manual_retract", "manual_retract_enabled", TypeChoice::Two},
    {"adhesion_detection_en", "adhesion_detection_enabled", TypeChoice::Two},
    {"descent_signal", "descent_signal_enabled", TypeChoice::Two},
    {"swing_job", "swing_job_enabled", TypeChoice::Two},
    {"process_job", "process_job_enabled", TypeChoice::Two},
    {"power_feedback", "power_feedback_enabled", TypeChoice::Three},
    {"light_feedback", "light_feedback_enabled", TypeChoice::Two},
    {"laser_alarm", "laser_alarm_enabled", TypeChoice::Two},
    {"shield_gas_feedback", "shield_gas_feedback_enabled", TypeChoice::Two},
    {"wire_speed_feedback", "wire_speed_feedback_enabled", TypeChoice::Three},
    {"wire_feed_feedback", "wire_feed_feedback_enabled", TypeChoice::Two},
    {"wire_feeder_alarm", "wire_feeder_alarm_enabled", TypeChoice::Two},
    {"adhesion_detection_feedback", "adhesion_detection_feedback_enabled", TypeChoice::Two},
    {"external_alarm", "external_alarm_enabled", TypeChoice::Two},
};

/// One characteristic curve: member with the number of its points, member with the points.
struct Curve {
    const char* countKey;
    const char* dataKey;
};

constexpr Curve kCurves[] = {
    {"laser_power_node", "power_nodes_data"},
    {"laser_feed_node", "feed_nodes_data"},
    {"laser_frequency_node", "frequency_nodes_data"},
    {"laser_dutycycle_node", "dutycycle_nodes_data"},
};

constexpr char kType[] = "_type";
constexpr char kPort[] = "_port";
constexpr char kBias[] = "_bias";

constexpr int kParameterSets = 30;
constexpr int kMatchTables = 10;
constexpr int kFewestNodes = 2;
constexpr int kMostNodes = 10;
constexpr int kLongestRegister = 1000;

template <std::size_t N>
void checkMembers(JsonCheck& check, const Member (&rows)[N], const QJsonObject& node, const JsonPath& path)
{
    QStringList keys;
    for (const Member& row : rows) {
        keys.append(QLatin1String(row.key));
    }
    check.members(node, path, keys);
    for (const Member& row : rows) {
        const QString key = QLatin1String(row.key);
        switch (row.kind) {
        case Kind::Bool:
            check.boolean(node.value(key), path / key);
            break;
        case Kind::Number:
            check.number(node.value(key), path / key);
            break;
        case Kind::Text:
            check.text(node.value(key), path / key);
            break;
        }
    }
}

/// A list of any number of rows, each with one number per column.
void checkRows(JsonCheck& check, const QJsonValue& value, const JsonPath& path, int columns)
{
    const QJsonArray rows = check.array(value, path);
    for (int r = 0; r < rows.size(); ++r) {
        const QJsonArray row = check.array(rows.at(r), path / r);
        if (row.size() != columns) {
            check.fail(path / r, JsonCheck::tr("expected %n numbers", nullptr, columns));
        }
        for (int c = 0; c < row.size(); ++c) {
            check.number(row.at(c), path / r / c);
        }
    }
}

void checkType(JsonCheck& check, const QJsonValue& value, const JsonPath& path, TypeChoice types)
{
    constexpr int kGroupPort = 1;
    if (check.whole(value, path, 0, 2) == kGroupPort && types == TypeChoice::Two) {
        check.fail(path, JsonCheck::tr("expected 0 or 2"));
    }
}

void checkIo(JsonCheck& check, const QJsonObject& node, const JsonPath& path)
{
    const auto member = [](const Signal& signal, const char* end) {
        return QLatin1String(signal.key) + QLatin1String(end);
    };
    QStringList keys;
    for (const Signal& signal : kSignals) {
        keys << member(signal, kType) << member(signal, kPort) << member(signal, kBias);
        if (signal.enabledKey != nullptr) {
            keys << QLatin1String(signal.enabledKey);
        }
    }
    check.members(node, path, keys);
    for (const Signal& signal : kSignals) {
        const QString type = member(signal, kType);
        const QString port = member(signal, kPort);
        const QString bias = member(signal, kBias);
        checkType(check, node.value(type), path / type, signal.types);
        check.text(node.value(port), path / port);
        check.whole(node.value(bias), path / bias, 0, kLongestRegister - 1);
        if (signal.enabledKey != nullptr) {
            const QString enabled = QLatin1String(signal.enabledKey);
            check.boolean(node.value(enabled), path / enabled);
        }
    }
}

QStringList numbered(const char* prefix, int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i) {
        names.append(QLatin1String(prefix) + QString::number(i));
    }
    return names;
}

/// An entry repeats its own name in a member.
void checkOwnName(JsonCheck& check, const QJsonObject& entry, const JsonPath& path, const char* key,
                  const QString& name)
{
    if (entry.value(QLatin1String(key)).toString() != name) {
        check.fail(path / QLatin1String(key), JsonCheck::tr("expected \"%1\"").arg(name));
    }
}

void checkParameters(JsonCheck& check, const QJsonObject& node, const JsonPath& path)
{
    check.members(node, path, {}, numbered("LsData", kParameterSets));
    for (auto set = node.constBegin(); set != node.constEnd(); ++set) {
        const JsonPath setPath = path / set.key();
        const QJsonObject members = check.object(set.value(), setPath);
        checkMembers(check, kParameterSet, members, setPath);
        checkOwnName(check, members, setPath, "LsDataID", set.key());
    }
}

void checkMatch(JsonCheck& check, const QJsonObject& node, const JsonPath& path)
{
    static constexpr Member kSwitches[] = {
        {"power_enable", Kind::Bool}, {"frequency_enable", Kind::Bool}, {"dutycycle_enable", Kind::Bool}};
    static constexpr char kData[] = "power_data";
    check.members(node, path, {}, numbered("PowerData", kMatchTables));
    for (auto table = node.constBegin(); table != node.constEnd(); ++table) {
        const JsonPath tablePath = path / table.key();
        QJsonObject members = check.object(table.value(), tablePath);
        checkRows(check, members.take(QLatin1String(kData)), tablePath / QLatin1String(kData), 4);
        checkOwnName(check, members, tablePath, "PowerDataID", table.key());
        members.remove(QLatin1String("PowerDataID"));
        checkMembers(check, kSwitches, members, tablePath);
    }
}

void checkCurves(JsonCheck& check, const QJsonObject& node, const JsonPath& path)
{
    QStringList keys;
    for (const Curve& curve : kCurves) {
        keys << QLatin1String(curve.countKey) << QLatin1String(curve.dataKey);
    }
    check.members(node, path, keys);
    for (const Curve& curve : kCurves) {
        const QString count = QLatin1String(curve.countKey);
        const QString data = QLatin1String(curve.dataKey);
        check.whole(node.value(count), path / count, kFewestNodes, kMostNodes);
        checkRows(check, node.value(data), path / data, 2);
    }
}

void checkSetting(JsonCheck& check, const QJsonObject& node, const JsonPath& path)
{
    checkMembers(check, kSetting, node, path);
}

struct NodeRow {
    const char* name;
    void (*check)(JsonCheck&, const QJsonObject&, const JsonPath&);
};

constexpr NodeRow kNodes[] = {
    {node::kSetting, checkSetting}, {node::kIo, checkIo},         {node::kParameters, checkParameters},
    {node::kMatch, checkMatch},     {node::kCurves, checkCurves},
};

} // namespace

QStringList nodeNames()
{
    QStringList names;
    for (const NodeRow& row : kNodes) {
        names.append(QLatin1String(row.name));
    }
    return names;
}

QStringList valueNames()
{
    return {QLatin1String(node::kVirtualWelding), QLatin1String(node::kRedLight)};
}

void checkNode(JsonCheck& check, const QString& name, const QJsonValue& node, const JsonPath& path)
{
    for (const NodeRow& row : kNodes) {
        if (name == QLatin1String(row.name)) {
            row.check(check, check.object(node, path), path);
        }
    }
}

QJsonObject checkNodes(JsonCheck& check, const QJsonValue& nodes, const JsonPath& path)
{
    QJsonObject object = check.object(nodes, path);
    check.members(object, path, nodeNames());
    for (const QString& name : nodeNames()) {
        if (!object.value(name).isNull()) {
            checkNode(check, name, object.value(name), path / name);
        }
    }
    return object;
}

} // namespace sim
