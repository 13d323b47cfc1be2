#ifndef SIMULATOR_JSONFILE_H
#define SIMULATOR_JSONFILE_H

#include "simulator/filefault.h"

#include <QJsonObject>

#include <optional>

namespace sim
{

/// The JSON object in a regular file of at most 16 MiB, also through links. A file that can't be read or is no JSON
/// object in UTF-8 yields nothing and fills fault. Of a member that comes twice the last one counts.
std::optional<QJsonObject> readJsonFile(const QString& path, FileFault* fault);

} // namespace sim

#endif
