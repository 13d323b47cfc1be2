#include "simulator/monitorstream.h"

#include "simulator/confignodes.h"

#include <cmath>
#include <limits>

namespace sim
{

namespace
{

constexpr double kUnbounded = std::numeric_limits<double>::max();
constexpr double kTwoPi = 6.283185307179586;

/// One value: where its middle comes from, how far it swings, and how long a swing takes. The two swings of different
/// length keep it from looking like a test signal.
struct ValueRow {
    const char* key;
    const char* nodeName;
    const char* member;
    bool needsLaser; ///< 0 while welding is virtual
    double swing;    ///< part of the middle
    int periodMs;
    double highest;
};

constexpr ValueRow kValues[] = {
    {"get_laser_power", node::kSetting, "laser_power", true, 0.012, 1700, kUnbounded},
    {"get_laser_frequency", node::kParameters, "frequency_weld", true, 0.002, 2300, kUnbounded},
    {"get_laser_dutycycle", node::kParameters, "duty_cycle_weld", true, 0.004, 3100, 100},
    {"get_laser_wirespeed", node::kParameters, "feeding_speed_run", true, 0.03, 1300, kUnbounded},
    {"get_laser_weldspeed", node::kParameters, "welding_speed", false, 0.008, 2900, kUnbounded},
};
constexpr const char* kWireKey = kValues[3].key;

/// The object that holds the members: the setting node itself, the first set of the parameter node.
QJsonObject source(const QJsonObject& nodes, const char* nodeName)
{
    QJsonObject found = nodes.value(QLatin1String(nodeName)).toObject();
    if (QLatin1String(nodeName) == QLatin1String(node::kSetting)) {
        return found;
    }
    return found.isEmpty() ? QJsonObject() : found.constBegin().value().toObject();
}

double swingAt(const ValueRow& row, qint64 ms)
{
    constexpr double kRipple = 0.3;
    constexpr double kRippleRatio = 4.7;
    const double phase = kTwoPi * static_cast<double>(ms) / row.periodMs;
    return row.swing * ((1 - kRipple) * std::sin(phase) + kRipple * std::sin(kRippleRatio * phase));
}

double valueOf(const ValueRow& row, const MonitorMoment& moment)
{
    constexpr double kDecimals = 100;
    double middle = source(moment.nodes, row.nodeName).value(QLatin1String(row.member)).toDouble();
    if (row.needsLaser && moment.isVirtual) {
        middle = 0;
    }
    // A key that runs the wire outdoes the weld.
    if (row.key == kWireKey && moment.manualWire > 0) {
        middle = moment.manualWire;
    }
    const double value = qBound(0.0, middle * (1 + swingAt(row, moment.ms)), row.highest);
    return std::round(value * kDecimals) / kDecimals;
}

} // namespace

QVariantMap monitorValues(const MonitorMoment& moment)
{
    QVariantMap values;
    for (const ValueRow& row : kValues) {
        values.insert(QLatin1String(row.key), valueOf(row, moment));
    }
    return values;
}

} // namespace sim
