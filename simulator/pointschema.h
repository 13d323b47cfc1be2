#ifndef SIMULATOR_POINTSCHEMA_H
#define SIMULATOR_POINTSCHEMA_H

#include "simulator/jsoncheck.h"
#include "simulator/robotpoint.h"

#include <QVector>

namespace sim
{

/// How poses and points are written in the files: six numbers; a list of objects with name, position, tool and
/// work object.

Pose readPose(JsonCheck& check, const QJsonValue& value, const JsonPath& path);

/// Points whose names can be told apart. Whether there are such tools and work objects is for the caller to know.
QVector<RobotPoint> readPoints(JsonCheck& check, const QJsonValue& value, const JsonPath& path);

QJsonArray pointsToJson(const QVector<RobotPoint>& points);

} // namespace sim

#endif
