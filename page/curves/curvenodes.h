#ifndef PAGE_CURVES_CURVENODES_H
#define PAGE_CURVES_CURVENODES_H

#include "page/curves/curvespecs.h"
#include "widgets/chartgeometry.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QPointF>
#include <QVector>

#include <optional>

/// The nodes of a curve as values: pairs of port value (x) and physical value (y), in the order of the table, and the
/// rules for them.

/// A curve as the controller publishes it.
struct StoredCurve {
    std::optional<int> count;            ///< 0 for what is no whole number; nothing when the member is missing
    std::optional<QList<QPointF>> nodes; ///< nothing when the member is missing or no array
};

/// The elements that are pairs of numbers; others are left out.
QList<QPointF> nodesOf(const QJsonArray& stored);

StoredCurve storedCurve(const CurveSpec& spec, const QJsonObject& node);

/// The two members of a curve in its commands: number of nodes and nodes, the physical values without their fractions.
QJsonObject curveMembers(const CurveSpec& spec, const QList<QPointF>& nodes);

/// A command with these members: {name: {...}}.
QJsonObject curveCommand(const names::command::Command& command, const CurveSpec& spec, const QList<QPointF>& nodes);

/// Whether the I/O mapping has the curve's output in use: its switch is true, and its port is not null.
bool isAssigned(const CurveSpec& spec, const QJsonObject& mapping);

/// Why nodes are refused.
struct NodeFault {
    enum class Kind {
        TooFew,    ///< fewer than two
        NotRising, ///< a value is not greater than the one in the row before
        NotEntered ///< a row can't be edited
    };
    Kind kind;
    int row = 0; ///< that does not rise, from 1
};

/// The first fault of the nodes in a table's rows; a row that can't be edited has none.
std::optional<NodeFault> firstFault(const QVector<std::optional<QPointF>>& rows);

/// The straight line physical value = slope * port value + intercept.
struct CurveLine {
    double slope = 0;
    double intercept = 0;
};

/// The line in the answer to a compute request: that of the last element, in which a missing member is 0. Nothing when
/// there is no element.
std::optional<CurveLine> lineOf(const QJsonArray& result);

/// Distance of the ticks on an axis up to maximum: about a tenth of it, rounded up; 0 for 1 to 8.
int tickStep(int maximum);

/// The axes of a chart on which all nodes can be seen, x from 0 on.
struct CurveLimits {
    ChartAxis x{2, 0, 10};
    ChartAxis y{1, 0, 5};
};

CurveLimits limitsOf(const QList<QPointF>& nodes);

#endif
