#include "page/curves/curvenodes.h"

#include "common/names.h"
#include "common/truncate.h"

#include <QJsonValue>

#include <algorithm>

namespace
{

/// Lets an axis reach one node. A maximum moves with each node: it is one more than the node that exceeded it.
void reach(ChartAxis* axis, double value)
{
    if (value > axis->maximum) {
        axis->maximum = truncatedToInt(value + 1);
        axis->step = std::max(tickStep(axis->maximum), 1);
    }
}

} // namespace

QList<QPointF> nodesOf(const QJsonArray& stored)
{
    QList<QPointF> nodes;
    for (const QJsonValue element : stored) {
        const QJsonArray pair = element.toArray();
        if (pair.size() == 2 && pair.at(0).isDouble() && pair.at(1).isDouble()) {
            nodes.append({pair.at(0).toDouble(), pair.at(1).toDouble()});
        }
    }
    return nodes;
}

StoredCurve storedCurve(const CurveSpec& spec, const QJsonObject& node)
{
    const QJsonValue count = node.value(QLatin1String(spec.countKey));
    const QJsonValue nodes = node.value(QLatin1String(spec.nodesKey));
    StoredCurve curve;
    if (!count.isUndefined()) {
        curve.count = count.toInt();
    }
    if (nodes.isArray()) {
        curve.nodes = nodesOf(nodes.toArray());
    }
    return curve;
}

QJsonObject curveMembers(const CurveSpec& spec, const QList<QPointF>& nodes)
{
    QJsonArray pairs;
    for (const QPointF& node : nodes) {
        pairs.append(QJsonArray{node.x(), truncatedToInt(node.y())});
    }
    return {{QLatin1String(spec.countKey), nodes.size()}, {QLatin1String(spec.nodesKey), pairs}};
}

QJsonObject curveCommand(const names::command::Command& command, const CurveSpec& spec, const QList<QPointF>& nodes)
{
    return {{QLatin1String(command), curveMembers(spec, nodes)}};
}

bool isAssigned(const CurveSpec& spec, const QJsonObject& mapping)
{
    return mapping.value(QLatin1String(spec.enabledKey)).toBool() &&
           !mapping.value(QLatin1String(spec.portKey)).isNull();
}

std::optional<NodeFault> firstFault(const QVector<std::optional<QPointF>>& rows)
{
    if (rows.size() < kFewestNodes) {
        return NodeFault{NodeFault::Kind::TooFew};
    }
    for (int i = 1; i < rows.size(); ++i) {
        const std::optional<QPointF>& before = rows.at(i - 1);
        const std::optional<QPointF>& node = rows.at(i);
        if (!before || !node) {
            return NodeFault{NodeFault::Kind::NotEntered};
        }
        if (!(node->x() > before->x()) || !(node->y() > before->y())) {
            return NodeFault{NodeFault::Kind::NotRising, i + 1};
        }
    }
    return {};
}

std::optional<CurveLine> lineOf(const QJsonArray& result)
{
    if (result.isEmpty()) {
        return {};
    }
    const QJsonObject answer = result.last()
                                   .toObject()
                                   .value(QLatin1String(names::kPlugin))
                                   .toObject()
                                   .value(QLatin1String(names::command::kComputeCurve))
                                   .toObject();
    return CurveLine{answer.value(QLatin1String("slope")).toDouble(),
                     answer.value(QLatin1String("intercept")).toDouble()};
}

int tickStep(int maximum)
{
    if (maximum < 1) {
        return 1;
    }
    qint64 power = 1;
    while (power * 10 <= maximum) {
        power *= 10;
    }
    const qint64 count = (maximum + power - 1) / power;
    return static_cast<int>(power * (count + 1) / 10);
}

CurveLimits limitsOf(const QList<QPointF>& nodes)
{
    CurveLimits limits;
    for (const QPointF& node : nodes) {
        reach(&limits.y, node.y());
        if (node.y() < limits.y.minimum) {
            limits.y.minimum = truncatedToInt(node.y() - 1);
        }
        reach(&limits.x, node.x());
    }
    return limits;
}
