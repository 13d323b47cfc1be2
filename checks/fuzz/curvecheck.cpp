#include "checks/fuzz/curvecheck.h"

#include "checks/fuzz/require.h"
#include "simulator/schemavalidator.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace fuzz
{

namespace
{

constexpr int kFewestNodes = 2;
constexpr int kMostNodes = 10;

/// The members of the curves in their node and their commands.
constexpr struct {
    const char* count;
    const char* nodes;
} kCurves[] = {{"laser_power_node", "power_nodes_data"},
               {"laser_feed_node", "feed_nodes_data"},
               {"laser_frequency_node", "frequency_nodes_data"},
               {"laser_dutycycle_node", "dutycycle_nodes_data"}};

QJsonArray pairsIn(const QJsonArray& stored)
{
    QJsonArray pairs;
    for (const QJsonValue element : stored) {
        const QJsonArray pair = element.toArray();
        if (pair.size() == 2 && pair[0].isDouble() && pair[1].isDouble()) {
            pairs.append(pair);
        }
    }
    return pairs;
}

double bounded(double value, const QJsonObject& rules)
{
    return std::clamp(value, rules[QLatin1String("minimum")].toDouble(), rules[QLatin1String("maximum")].toDouble());
}

/// node: undefined for a row beyond those that were stored.
void requireNode(const QString& member, const QJsonValue& node, const QJsonArray& written)
{
    const sim::JsonPath path = sim::JsonPath() / member / 0;
    const auto& schema = sim::SchemaValidator::of(QStringLiteral("weld_curve_config"));
    const double port = bounded(node[0].toDouble(), schema.rulesAt(path / 0));
    const double value = bounded(std::trunc(node[1].toDouble()), schema.rulesAt(path / 1));
    require(written[1].toDouble() == value, "a physical value is not cut off and bounded");

    constexpr double kRounding = 1e-6;
    const double hundredths = written[0].toDouble() * 100;
    require(std::abs(hundredths - port * 100) <= 0.5 + kRounding, "a port value is not the nearest within its range");
    require(std::abs(hundredths - std::round(hundredths)) < kRounding, "a port value has more than two decimals");
}

} // namespace

QJsonObject withEnoughNodes(QJsonObject commands)
{
    for (const QString& name : commands.keys()) {
        for (const QJsonValue member : commands[name].toObject()) {
            if (member.isArray() && member.toArray().size() < kFewestNodes) {
                commands.remove(name);
            }
        }
    }
    return commands;
}

void requireCurves(const QJsonObject& config, const QJsonObject& written)
{
    for (const auto& curve : kCurves) {
        const QString member = QLatin1String(curve.nodes);
        if (!config[member].isArray()) {
            continue;
        }
        const int rows = std::clamp(config[QLatin1String(curve.count)].toInt(), 0, kMostNodes);
        const QJsonArray pairs = pairsIn(config[member].toArray());
        const QJsonArray nodes = written[member].toArray();
        require(nodes.size() == (rows < kFewestNodes ? 0 : rows), "there are not as many nodes as their number says");
        require(written[QLatin1String(curve.count)].toInt() == nodes.size(), "a curve is saved with another count");
        for (int row = 0; row < nodes.size(); ++row) {
            requireNode(member, pairs[row], nodes[row].toArray());
        }
    }
}

bool hasAllCurves(const QJsonObject& config)
{
    return std::all_of(std::begin(kCurves), std::end(kCurves),
                       [&config](const auto& curve) { return config[QLatin1String(curve.nodes)].isArray(); });
}

} // namespace fuzz
