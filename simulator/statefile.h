#ifndef SIMULATOR_STATEFILE_H
#define SIMULATOR_STATEFILE_H

#include "simulator/filefault.h"
#include "simulator/robotpoint.h"

#include <QJsonObject>
#include <QVector>

#include <optional>

namespace sim
{

/// What a file keeps between two runs of the program: each part replaces that of the cell if it is there.
struct State {
    std::optional<QJsonObject> nodes;
    std::optional<QVector<RobotPoint>> points;
};

/// Reads the state. A file that is not there yet keeps nothing, and one may lack the points; a malformed one yields
/// no state, fills fault and stays as it is.
std::optional<State> loadState(const QString& path, FileFault* fault);

/// Replaces the file as a whole: whoever reads it finds the old state or the new one. Returns why it could
/// not be written, empty when it was.
QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points);

} // namespace sim

#endif
