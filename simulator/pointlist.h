#ifndef SIMULATOR_POINTLIST_H
#define SIMULATOR_POINTLIST_H

#include "simulator/namecheck.h"
#include "simulator/robotpoint.h"

#include <QJsonArray>
#include <QVector>

namespace sim
{

/// How poses and points are written in the files: six numbers; a list of objects with name, position, tool and
/// work object.

/// A pose that follows the schema of the cell.
Pose readPose(const QJsonValue& value);

/// Points that follow the schema of the cell, with names that can be told apart. Whether there are such tools and work
/// objects is for the caller to know.
QVector<RobotPoint> readPoints(NameCheck& check, const QJsonValue& value, const JsonPath& path);

QJsonArray pointsToJson(const QVector<RobotPoint>& points);

} // namespace sim

#endif
