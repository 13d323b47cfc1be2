#include "simulator/pointschema.h"

#include <QSet>

#include <iterator>

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

RobotPoint readPoint(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QString name = QLatin1String(kName);
    const QString position = QLatin1String(kPosition);
    const QString tool = QLatin1String(kTool);
    const QString wobj = QLatin1String(kWobj);
    const QJsonObject entry = check.object(value, path);
    check.members(entry, path, {name, position, tool, wobj});
    return {check.name(entry.value(name), path / name), readPose(check, entry.value(position), path / position),
            check.name(entry.value(tool), path / tool), check.name(entry.value(wobj), path / wobj)};
}

} // namespace

Pose readPose(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    constexpr int kNumbers = std::size(kCoordinates);
    const QJsonArray numbers = check.array(value, path);
    if (numbers.size() != kNumbers) {
        check.fail(path, JsonCheck::tr("expected %n numbers", nullptr, kNumbers));
    }
    Pose pose;
    for (int i = 0; i < kNumbers; ++i) {
        const Coordinate& coordinate = kCoordinates[i];
        pose.*coordinate.value = check.number(numbers.at(i), path / i, -coordinate.limit, coordinate.limit);
    }
    return pose;
}

QVector<RobotPoint> readPoints(JsonCheck& check, const QJsonValue& value, const JsonPath& path)
{
    const QJsonArray entries = check.array(value, path);
    QVector<RobotPoint> points;
    QSet<QString> known;
    for (int i = 0; check.ok() && i < entries.size(); ++i) {
        points.append(readPoint(check, entries.at(i), path / i));
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
