#ifndef SIMULATOR_STATEFILE_H
#define SIMULATOR_STATEFILE_H

#include "simulator/cellfile.h"

namespace sim
{

/// What a file keeps between two runs of the program: each part replaces that of the cell if it is there.
struct State {
    std::optional<QJsonObject> nodes;
    std::optional<QVector<RobotPoint>> points;
    std::optional<QJsonArray> registers; ///< those that the controller publishes
};

/// Reads the state. A file that is not there yet keeps nothing, and one may lack points and registers; a malformed one
/// yields no state, fills fault and stays as it is.
std::optional<State> loadState(const QString& path, FileFault* fault);

/// Puts what was kept in the place of what the cell has. A register of the cell that was not kept stays in its list as
/// one that is withdrawn, as long as a list has room for it.
void restoreState(const State& state, Cell* cell);

/// Replaces the file as a whole: whoever reads it finds the old state or the new one. Returns why it could
/// not be written, empty when it was.
QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points,
                  const std::optional<QJsonArray>& registers = std::nullopt);

} // namespace sim

#endif
