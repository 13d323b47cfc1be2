#ifndef SIMULATOR_STATEFILE_H
#define SIMULATOR_STATEFILE_H

#include "simulator/cellfile.h"

namespace sim
{

/// What a file keeps between two runs of the program: nodes and points replace those of the cell if they are
/// there, what was done to its registers is done again.
struct State {
    std::optional<QJsonObject> nodes;
    std::optional<QVector<RobotPoint>> points;
    RegisterChanges registers;
};

/// Reads the state. A file that is not there yet keeps nothing, and one may lack points and registers; a malformed one
/// yields no state, fills fault and stays as it is.
std::optional<State> loadState(const QString& path, FileFault* fault);

/// Puts what was kept in the place of what the cell has. A register that the state does not mention stays as the cell
/// has it; one that the cell does not have is passed over.
void restoreState(const State& state, Cell* cell);

/// Replaces the file as a whole: whoever reads it finds the old state or the new one. Returns why it could
/// not be written, empty when it was.
QString saveState(const QString& path, const QJsonObject& nodes, const QVector<RobotPoint>& points,
                  const RegisterChanges& registers = {});

} // namespace sim

#endif
