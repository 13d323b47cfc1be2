#ifndef SIMULATOR_STATEFILE_H
#define SIMULATOR_STATEFILE_H

#include "simulator/jsonfile.h"

#include <QJsonObject>

namespace sim
{

/// The file that keeps the configuration nodes between two runs of the program.

/// Reads the nodes. A file that is not there yet gives an empty object; a malformed one yields nothing, fills
/// fault and stays as it is.
std::optional<QJsonObject> loadState(const QString& path, FileFault* fault);

/// Replaces the file as a whole: whoever reads it finds the old nodes or the new ones. Returns why it could
/// not be written, empty when it was.
QString saveState(const QString& path, const QJsonObject& nodes);

} // namespace sim

#endif
