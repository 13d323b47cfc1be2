#include "checks/monkey/curverules.h"

#include <QJsonArray>

namespace
{

constexpr struct {
    const char* nodes;  ///< a curve's member
    const char* output; ///< the signal whose port it is about
} kCurves[] = {{"power_nodes_data", "power"},
               {"feed_nodes_data", "wire_speed"},
               {"frequency_nodes_data", "frequency"},
               {"dutycycle_nodes_data", "duty_cycle"}};

} // namespace

QString brokenCurveRule(const QJsonObject& curve)
{
    QJsonArray nodes;
    int count = 0;
    for (const QJsonValue member : curve) {
        nodes = member.isArray() ? member.toArray() : nodes;
        count = member.isDouble() ? member.toInt() : count;
    }
    if (nodes.size() != count) {
        return QStringLiteral("there are %1 nodes, not %2").arg(QString::number(nodes.size()), QString::number(count));
    }
    for (int i = 1; i < count; ++i) {
        for (const int column : {0, 1}) {
            if (nodes.at(i)[column].toDouble() <= nodes.at(i - 1)[column].toDouble()) {
                return QStringLiteral("value %1 of node %2 does not rise").arg(column + 1).arg(i + 1);
            }
        }
    }
    return {};
}

bool isAssigned(const QJsonObject& curve, const QJsonValue& mapping)
{
    for (const auto& row : kCurves) {
        if (curve.contains(QLatin1String(row.nodes))) {
            const QString output = QLatin1String(row.output);
            return mapping[output + QLatin1String("_enabled")].toBool() &&
                   !mapping[output + QLatin1String("_port")].isNull();
        }
    }
    return false;
}
