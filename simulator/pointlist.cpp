#include "simulator/pointlist.h"

#include <QJsonObject>

namespace sim
{

namespace
{

constexpr char kName[] = "name";
constexpr char kPosition[] = "position";
constexpr char kTool[] = "tool";
constexpr char kWobj[] = "wobj";

QJsonArray poseToJson(const Pose& pose)
{
    QJsonArray numbers;
    for (const Coordinate& coordinate : kCoordinates) {
        numbers.append(pose.*coordinate.value);
    }
    return numbers;
}

} // namespace

Pose readPose(const QJsonValue& value)
{
    Pose pose;
    int i = 0;
    for (const Coordinate& coordinate : kCoordinates) {
        pose.*coordinate.value = value[i++].toDouble();
    }
    return pose;
}

QVector<RobotPoint> readPoints(NameCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QJsonArray entries = value.toArray();
    QVector<RobotPoint> points;
    QSet<QString> known;
    for (int i = 0; !check.fault() && i < entries.size(); ++i) {
        const QJsonValue entry = entries.at(i);
        const auto name = [&](const char* key) {
            return check.name(entry[QLatin1String(key)], path / i / QLatin1String(key));
        };
        points.append({name(kName), readPose(entry[QLatin1String(kPosition)]), name(kTool), name(kWobj)});
        check.another(points.last().name, path / i / QLatin1String(kName), &known);
    }
    return points;
}

QJsonArray pointsToJson(const QVector<RobotPoint>& points)
{
    QJsonArray entries;
    for (const RobotPoint& point : points) {
        entries.append(QJsonObject{{QLatin1String(kName), point.name},
                                   {QLatin1String(kPosition), poseToJson(point.pose)},
                                   {QLatin1String(kTool), point.tool},
                                   {QLatin1String(kWobj), point.wobj}});
    }
    return entries;
}

} // namespace sim
